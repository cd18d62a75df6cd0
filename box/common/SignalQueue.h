// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_SIGNALQUEUE_H
#define TAMOBOX_SIGNALQUEUE_H

#include "Descriptor.h"

#include <signal.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <cstdint>
#include <initializer_list>
#include <optional>

namespace tamobox {

/**
 * Blocks every signal of the process, except those that the kernel sends for the process's own
 * faults and those it is asked to leave alone, and hands the blocked ones out one by one. There is
 * one in a process, made before any thread. Destruction does not unblock.
 */
class SignalQueue
{
public:
    /** @param untouched signals that keep their effect */
    explicit SignalQueue(std::initializer_list<int> untouched = {});

    /** Readable while a signal waits; stays the queue's. */
    int descriptor() const { return m_descriptor.get(); }

    /** The next signal; nothing where none waits. */
    std::optional<signalfd_siginfo> next();

    /** The signals that were blocked before: what a program that is started here should inherit. */
    const sigset_t& previousMask() const { return m_previousMask; }

private:
    sigset_t m_previousMask = {};
    Descriptor m_descriptor;
};

/**
 * Whether another process sent a signal, and not the kernel (the terminal's keys, a hang-up) or
 * this process itself (by writing to a closed pipe).
 */
inline bool isFromAnotherProcess(const signalfd_siginfo& signal)
{
    return signal.ssi_code != SI_KERNEL && signal.ssi_pid != static_cast<std::uint32_t>(getpid());
}

} // namespace tamobox

#endif
