// SPDX-License-Identifier: Apache-2.0
#include "FailingAllocator.h"

#include <cerrno>
#include <cstddef>

// glibc's own allocator, under the names that it keeps for whoever replaces the others.
extern "C" void* __libc_malloc(std::size_t size);
extern "C" void* __libc_realloc(void* memory, std::size_t size);

namespace {

int allocationsUntilFailure = -1; ///< negative: none fails

bool isFailing()
{
    if (allocationsUntilFailure < 0 || allocationsUntilFailure-- > 0)
        return false;
    errno = ENOMEM;
    return true;
}

} // namespace

extern "C" void* malloc(std::size_t size)
{
    return isFailing() ? nullptr : __libc_malloc(size);
}

extern "C" void* realloc(void* memory, std::size_t size)
{
    return isFailing() ? nullptr : __libc_realloc(memory, size);
}

namespace test {

FailingAllocator::FailingAllocator(int index)
{
    allocationsUntilFailure = index;
}
FailingAllocator::~FailingAllocator()
{
    allocationsUntilFailure = -1;
}
bool FailingAllocator::hasFailed() const
{
    return allocationsUntilFailure < 0;
}

} // namespace test
