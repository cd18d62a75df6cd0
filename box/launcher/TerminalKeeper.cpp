// SPDX-License-Identifier: Apache-2.0
#include "TerminalKeeper.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

namespace tamobox {

TerminalKeeper::TerminalKeeper() : m_terminal(open("/dev/tty", O_RDWR | O_CLOEXEC | O_NOCTTY))
{
    if (m_terminal && tcgetpgrp(m_terminal.get()) != getpgrp())
        m_terminal.reset();
}

TerminalKeeper::~TerminalKeeper()
{
    if (!m_terminal || tcgetpgrp(m_terminal.get()) == getpgrp())
        return;
    // A process in the background that does this would be stopped for it.
    sigset_t stop;
    sigset_t previous;
    sigemptyset(&stop);
    sigaddset(&stop, SIGTTOU);
    sigprocmask(SIG_BLOCK, &stop, &previous);
    tcsetpgrp(m_terminal.get(), getpgrp());
    sigprocmask(SIG_SETMASK, &previous, nullptr);
}

} // namespace tamobox
