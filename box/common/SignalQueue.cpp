// SPDX-License-Identifier: Apache-2.0
#include "SignalQueue.h"

#include "Failure.h"

namespace tamobox {

SignalQueue::SignalQueue(std::initializer_list<int> untouched)
{
    sigset_t blocked;
    sigfillset(&blocked);
    for (const int fault : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGTRAP, SIGABRT, SIGSYS})
        sigdelset(&blocked, fault);
    for (const int signal : untouched)
        sigdelset(&blocked, signal);
    if (sigprocmask(SIG_SETMASK, &blocked, &m_previousMask) == -1)
        throw systemFailure("cannot block signals");
    m_descriptor = Descriptor(signalfd(-1, &blocked, SFD_CLOEXEC | SFD_NONBLOCK));
    if (!m_descriptor)
        throw systemFailure("cannot read signals");
}

std::optional<signalfd_siginfo> SignalQueue::next()
{
    signalfd_siginfo signal = {};
    if (read(m_descriptor.get(), &signal, sizeof signal) != sizeof signal)
        return std::nullopt;
    return signal;
}

} // namespace tamobox
