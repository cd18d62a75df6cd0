// SPDX-License-Identifier: Apache-2.0
#include "Process.h"

#include <fcntl.h>
#include <grp.h>
#include <linux/close_range.h>
#include <poll.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <thread>

namespace boxtest {

namespace {

using Clock = std::chrono::steady_clock;

constexpr uid_t ordinaryUser = 54321;

int fileWith(const std::string& text)
{
    const int file = memfd_create("input", MFD_CLOEXEC);
    if (write(file, text.data(), text.size()) != static_cast<ssize_t>(text.size()))
        std::perror("cannot write the input");
    lseek(file, 0, SEEK_SET);
    return file;
}

bool endsWithinLimit(pid_t child)
{
    const int process = static_cast<int>(syscall(SYS_pidfd_open, child, 0));
    pollfd end = {process, POLLIN, 0}; // readable when the process has ended
    const bool ended =
        poll(&end, 1, static_cast<int>(std::chrono::milliseconds(limit).count())) == 1;
    close(process);
    return ended;
}

void readSome(int& fd, std::string& text)
{
    std::array<char, 65536> buffer;
    const ssize_t size = read(fd, buffer.data(), buffer.size());
    if (size > 0) {
        text.append(buffer.data(), static_cast<std::size_t>(size));
        return;
    }
    close(fd);
    fd = -1;
}

} // namespace

std::vector<User> users()
{
    if (geteuid() == 0)
        return {User::Caller, User::Ordinary};
    return {User::Caller};
}

std::string nameOf(User user)
{
    return user == User::Caller && geteuid() == 0 ? "Root" : "OrdinaryUser";
}

void become(const std::vector<std::string>& command, User user)
{
    std::vector<char*> arguments;
    for (const std::string& argument : command)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    if (user == User::Ordinary &&
        (setgroups(0, nullptr) == -1 || setgid(ordinaryUser) == -1 || setuid(ordinaryUser) == -1))
        std::perror("cannot become an ordinary user");
    else if (prctl(PR_SET_PDEATHSIG, SIGKILL) == 0) // nothing stays when the tests are killed
        execvp(arguments[0], arguments.data());
    std::perror(arguments[0]);
    _exit(99);
}

bool waitUntil(const std::function<bool()>& condition)
{
    const auto deadline = Clock::now() + limit;
    while (!condition()) {
        if (Clock::now() >= deadline)
            return false;
        std::this_thread::yield(); // no descriptor tells what changes in /proc
    }
    return true;
}

Process::Process(const std::vector<std::string>& command, User user, const std::string& input,
                 const Preparation& prepare)
{
    int output[2];
    int errors[2];
    if (pipe2(output, O_CLOEXEC) == -1 || pipe2(errors, O_CLOEXEC) == -1)
        std::perror("cannot create a pipe");
    const int inputFile = fileWith(input);
    m_pid = fork();
    if (m_pid == 0) {
        setpgid(0, 0);
        close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC); // what the tests' caller had open
        dup2(inputFile, STDIN_FILENO);
        dup2(output[1], STDOUT_FILENO);
        dup2(errors[1], STDERR_FILENO);
        if (prepare)
            prepare();
        become(command, user);
    }
    setpgid(m_pid, m_pid); // here, too, so that the group is there for whoever signals it next
    close(inputFile);
    close(output[1]);
    close(errors[1]);
    m_outputReader = output[0];
    m_errorReader = errors[0];
}

Process::~Process()
{
    if (!m_reaped) {
        kill(-m_pid, SIGKILL);
        waitpid(m_pid, nullptr, 0);
    }
    close(m_outputReader);
    close(m_errorReader);
}

bool Process::printed(const std::string& text, std::size_t from)
{
    return readUntil([&] { return m_output.find(text, from) != std::string::npos; });
}

bool Process::complained(const std::string& text)
{
    return readUntil([&] { return m_errors.find(text) != std::string::npos; });
}

int Process::wait()
{
    readUntil([] { return false; });
    int result = 0;
    if (m_reaped || !endsWithinLimit(m_pid) || waitpid(m_pid, &result, 0) != m_pid)
        return -1;
    m_reaped = true;
    return WIFSIGNALED(result) ? 128 + WTERMSIG(result) : WEXITSTATUS(result);
}

// Reads until a condition holds; false when both outputs have ended, or the limit has passed,
// before.
bool Process::readUntil(const std::function<bool()>& condition)
{
    const auto deadline = Clock::now() + limit;
    while (!condition()) {
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
        if (left.count() <= 0 || (m_outputReader == -1 && m_errorReader == -1))
            return condition();
        std::array<pollfd, 2> entries = {{{m_outputReader, POLLIN, 0}, {m_errorReader, POLLIN, 0}}};
        poll(entries.data(), entries.size(), static_cast<int>(left.count()));
        if (entries[0].revents != 0)
            readSome(m_outputReader, m_output);
        if (entries[1].revents != 0)
            readSome(m_errorReader, m_errors);
    }
    return true;
}

} // namespace boxtest
