// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_BENCH_SHAREDMEMORY_H
#define TAMO_BENCH_SHAREDMEMORY_H

#include "Descriptor.h"

#include <new>

#include <sys/mman.h>

namespace tamobench {

/** A value that this process and the ones it forks have in common. */
template<typename Value>
class SharedMemory
{
public:
    SharedMemory()
    {
        void* memory = ::mmap(nullptr, sizeof(Value), PROT_READ | PROT_WRITE,
                              MAP_SHARED | MAP_ANONYMOUS, -1, 0);
        if (memory == MAP_FAILED)
            throwErrno("mmap");
        m_value = new (memory) Value();
    }

    ~SharedMemory() { ::munmap(m_value, sizeof(Value)); }
    SharedMemory(const SharedMemory&) = delete;
    SharedMemory& operator=(const SharedMemory&) = delete;

    Value& operator*() const { return *m_value; }
    Value* operator->() const { return m_value; }

private:
    Value* m_value;
};

} // namespace tamobench

#endif
