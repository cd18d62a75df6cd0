// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_APPLICATION_H
#define TAMOBOX_APPLICATION_H

#include "common/BoxPlan.h"

#include <sys/types.h>

#include <array>
#include <chrono>
#include <csignal>

namespace tamobox {

/**
 * The application of a box: a process that has what it would have outside, its user's capabilities,
 * standard streams, environment, signals and process group.
 */
class Application
{
public:
    /** Starts it. Throws Failure, with the status for it, where its program cannot be executed. */
    explicit Application(const BoxPlan& plan);

    pid_t pid() const { return m_pid; }

    /**
     * To be told of a signal that reached this process because it was sent to the whole process
     * group: the application, in the same group, has it already.
     */
    void noteGroupSignal(int signal);

    /** Passes on a signal that was sent to the launcher, unless the application has it already. */
    void passSignal(int signal);

private:
    pid_t m_pid = -1;
    /** When the whole group got each signal last. */
    std::array<std::chrono::steady_clock::time_point, NSIG> m_groupSignals;
};

} // namespace tamobox

#endif
