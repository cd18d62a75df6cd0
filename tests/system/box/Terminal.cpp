// SPDX-License-Identifier: Apache-2.0
#include "Terminal.h"

#include <poll.h>
#include <pty.h>
#include <signal.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cstdio>

namespace boxtest {

namespace {

// What a shell with job control does for one command; runs in the new terminal.
[[noreturn]] void runShell(const std::vector<std::string>& command, User user)
{
    signal(SIGTTOU, SIG_IGN);
    const pid_t job = fork();
    if (job == 0) {
        setpgid(0, 0);
        tcsetpgrp(STDIN_FILENO, getpid());
        signal(SIGTTOU, SIG_DFL);
        become(command, user);
    }
    setpgid(job, job);
    tcsetpgrp(STDIN_FILENO, job);
    int result = 0;
    while (waitpid(job, &result, WUNTRACED) == job && WIFSTOPPED(result)) {
        tcsetpgrp(STDIN_FILENO, getpgrp());
        std::printf("[stopped]\n");
        std::fflush(stdout);
        tcsetpgrp(STDIN_FILENO, job);
        kill(-job, SIGCONT);
    }
    tcsetpgrp(STDIN_FILENO, getpgrp());
    std::printf("[exit %d]\n", WIFSIGNALED(result) ? 128 + WTERMSIG(result) : WEXITSTATUS(result));
    std::fflush(stdout);
    _exit(0);
}

} // namespace

Terminal::Terminal(const std::vector<std::string>& command, User user)
{
    m_shell = forkpty(&m_keyboard, nullptr, nullptr, nullptr);
    if (m_shell == 0)
        runShell(command, user);
}

Terminal::~Terminal()
{
    close(m_keyboard); // a hang-up ends the job
    kill(m_shell, SIGKILL);
    waitpid(m_shell, nullptr, 0);
}

void Terminal::type(const std::string& keys)
{
    if (write(m_keyboard, keys.data(), keys.size()) != static_cast<ssize_t>(keys.size()))
        std::perror("cannot type");
}

void Terminal::resize(unsigned short rows, unsigned short columns)
{
    const winsize size = {rows, columns, 0, 0};
    ioctl(m_keyboard, TIOCSWINSZ, &size);
}

void Terminal::signalForeground(int signal)
{
    kill(tcgetpgrp(m_keyboard), signal);
}

bool Terminal::shows(const std::string& text)
{
    return waitUntil([&] {
        pollfd entry = {m_keyboard, POLLIN, 0};
        std::array<char, 4096> buffer;
        while (poll(&entry, 1, 0) == 1) {
            const ssize_t size = read(m_keyboard, buffer.data(), buffer.size());
            if (size <= 0) // nobody has the terminal open any more
                break;
            m_screen.append(buffer.data(), static_cast<std::size_t>(size));
        }
        return m_screen.find(text) != std::string::npos;
    });
}

} // namespace boxtest
