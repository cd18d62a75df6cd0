// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_GROUPWITNESS_H
#define TAMOBOX_GROUPWITNESS_H

#include "common/Descriptor.h"

#include <sys/types.h>

#include <array>
#include <chrono>

namespace tamobox {

/**
 * A process in the caller's process group that does nothing but notice which signals it is sent:
 * they were meant for the whole group. It ends with the caller. Make it before any thread, and
 * before the processes are started that share the group's signals.
 */
class GroupWitness
{
public:
    GroupWitness();
    ~GroupWitness();
    GroupWitness(const GroupWitness&) = delete;
    GroupWitness& operator=(const GroupWitness&) = delete;

    /** Whether another process has sent this signal to the group just now; asked when the caller
     * itself has got the signal. */
    bool hasSeen(int signal);

private:
    pid_t m_pid = -1;
    Descriptor m_socket;
    /** By the signal's number; at first long ago. */
    std::array<std::chrono::steady_clock::time_point, 65> m_lastSeen = {};
};

} // namespace tamobox

#endif
