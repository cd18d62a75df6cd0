// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_WAITINGROOM_H
#define TAMOBOX_WAITINGROOM_H

#include <sys/types.h>

#include <cstddef>
#include <map>

namespace tamobox {

/** The room that requests have while they wait: so much for all, and half of it for a process, so
 * that one application alone cannot take it all. */
class WaitingRoom
{
public:
    static constexpr std::size_t ofAll = std::size_t{256} << 20; // bytes
    static constexpr std::size_t ofAProcess = ofAll / 2;

    /** What a request takes, in bytes: its message, and what ordinary ones were measured to take
     * beside theirs. */
    static constexpr std::size_t sizeOf(std::size_t message) { return message + 800; }

    /** Whether there is room for so many bytes more of a process. */
    bool isFor(pid_t process, std::size_t bytes) const
    {
        const auto found = m_taken.find(process);
        return m_all + bytes <= ofAll &&
               (found == m_taken.end() ? 0 : found->second) + bytes <= ofAProcess;
    }

    void take(pid_t process, std::size_t bytes)
    {
        m_taken[process] += bytes;
        m_all += bytes;
    }

    /** Gives back what was taken. */
    void giveBack(pid_t process, std::size_t bytes)
    {
        m_all -= bytes;
        if ((m_taken[process] -= bytes) == 0)
            m_taken.erase(process);
    }

private:
    std::size_t m_all = 0;
    std::map<pid_t, std::size_t> m_taken; // none of them 0
};

} // namespace tamobox

#endif
