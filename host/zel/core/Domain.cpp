// SPDX-License-Identifier: Apache-2.0
#include "Domain.h"

#include <atomic>
#include <climits>

namespace zel {
namespace {

// Above the services', with room for those to come.
constexpr int FirstRegistered = 1000;
static_assert(number(Domain::End) <= FirstRegistered, "the numbers overlap");

std::atomic<int> nextDomain{FirstRegistered};

} // namespace

bool isDomain(int domain)
{
    return (domain > 0 && domain < number(Domain::End)) ||
           (domain >= FirstRegistered && domain < nextDomain.load(std::memory_order_relaxed));
}

int registerDomain()
{
    int domain = nextDomain.load(std::memory_order_relaxed);
    do {
        if (domain == INT_MAX)
            return -1;
    } while (!nextDomain.compare_exchange_weak(domain, domain + 1, std::memory_order_relaxed));
    return domain;
}

} // namespace zel
