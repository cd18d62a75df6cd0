// SPDX-License-Identifier: Apache-2.0
#include "GroupWitness.h"

#include "common/Failure.h"
#include "common/SignalQueue.h"

#include <linux/close_range.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/signalfd.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tamobox {

namespace {

// The longest that the caller takes to ask about a signal.
constexpr auto callersDelay = std::chrono::milliseconds(200);

std::uint64_t bitOf(std::uint32_t signal)
{
    return std::uint64_t{1} << (signal - 1);
}

// Answers each byte with the signals that have come since the last one, until the asker is gone.
[[noreturn]] void witness(int socket, const sigset_t& allSignals)
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    // It must hold nothing open, or a pipe of the caller's would not end with the caller's program.
    dup2(socket, 0);
    close_range(1, ~0U, 0);
    const int signals = signalfd(-1, &allSignals, SFD_NONBLOCK);
    for (char question; read(0, &question, 1) == 1;) {
        std::uint64_t seen = 0;
        signalfd_siginfo signal = {};
        while (read(signals, &signal, sizeof signal) == sizeof signal) {
            if (isFromAnotherProcess(signal))
                seen |= bitOf(signal.ssi_signo);
        }
        if (write(0, &seen, sizeof seen) != sizeof seen)
            break;
    }
    _exit(0);
}

} // namespace

GroupWitness::GroupWitness()
{
    int sockets[2];
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, sockets) == -1)
        throw systemFailure("cannot create a pair of sockets");
    m_socket = Descriptor(sockets[0]);
    const Descriptor other(sockets[1]);
    // It must not be ended by a signal before it can block it.
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    sigprocmask(SIG_SETMASK, &all, &before);
    m_pid = fork();
    if (m_pid == 0)
        witness(other.get(), all);
    sigprocmask(SIG_SETMASK, &before, nullptr);
    if (m_pid == -1)
        throw systemFailure("cannot start a process");
}

GroupWitness::~GroupWitness()
{
    m_socket.reset();
    waitpid(m_pid, nullptr, 0);
}

// The kernel signals a group's youngest process first, so the witness has the signal when the
// caller has it. Not by counting: two signals of a kind that come close together may be one to the
// witness and two to the caller, or the other way round.
bool GroupWitness::hasSeen(int signal)
{
    std::uint64_t seen = 0;
    if (send(m_socket.get(), "?", 1, MSG_NOSIGNAL) != 1 ||
        recv(m_socket.get(), &seen, sizeof seen, 0) != sizeof seen)
        seen = 0;
    const auto now = std::chrono::steady_clock::now();
    for (std::uint32_t number = 1; number < m_lastSeen.size(); ++number) {
        if ((seen & bitOf(number)) != 0)
            m_lastSeen[number] = now;
    }
    return now - m_lastSeen[static_cast<std::size_t>(signal)] <= callersDelay;
}

} // namespace tamobox
