// SPDX-License-Identifier: Apache-2.0
#include "Lookout.h"

#include <poll.h>
#include <sched.h>

#include <algorithm>

namespace ppsfs {
namespace {

using namespace std::chrono_literals;

/** Above what it takes an idle processor to wake up, also the slow one of a virtual machine. */
constexpr auto Longest = 200us;

/** Well above what a glance takes: somebody else had the processor between two of them. */
constexpr auto Interruption = 20us;

/** Above what anybody needs who only asks for something and then sleeps. */
constexpr auto Occupation = 1ms;

/** How long nobody looks on a processor that is occupied. */
constexpr auto Rest = 1s;

constexpr unsigned MostOmitted = 255;

bool isReadable(int descriptor)
{
    pollfd polled{descriptor, POLLIN, 0};
    return poll(&polled, 1, 0) != 0; // a failure is the next read's business
}

} // namespace

bool Lookout::sees(int descriptor)
{
    if (m_toOmit != 0) {
        --m_toOmit;
        return false;
    }
    const Clock::time_point begin = Clock::now();
    if (begin < m_restsUntil)
        return false;
    for (Clock::time_point last = begin;;) {
        const bool seen = isReadable(descriptor);
        const Clock::time_point now = Clock::now();
        const auto sinceLast = now - last;
        if (sinceLast > Occupation)
            m_restsUntil = now + Rest;
        if (sinceLast > Interruption || (!seen && now - begin > Longest)) {
            omitMore();
            return seen;
        }
        if (seen) {
            m_omitted = 0;
            return true;
        }
        last = now;
        sched_yield();
    }
}

void Lookout::omitMore()
{
    m_omitted = std::min(2 * m_omitted + 1, MostOmitted);
    m_toOmit = m_omitted;
}

} // namespace ppsfs
