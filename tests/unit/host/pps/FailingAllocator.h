// SPDX-License-Identifier: Apache-2.0
#ifndef TEST_PPS_FAILINGALLOCATOR_H
#define TEST_PPS_FAILINGALLOCATOR_H

namespace test {

/**
 * While it exists, one allocation of this process fails. It stands in for malloc() and realloc(),
 * so nothing but the code under test may run meanwhile.
 */
class FailingAllocator
{
public:
    /** @param index which of the allocations that follow fails, counted from 0 */
    explicit FailingAllocator(int index);
    ~FailingAllocator();
    FailingAllocator(const FailingAllocator&) = delete;
    FailingAllocator& operator=(const FailingAllocator&) = delete;

    /** Whether there were enough allocations for it to fail. */
    bool hasFailed() const;
};

} // namespace test

#endif
