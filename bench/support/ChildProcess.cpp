// SPDX-License-Identifier: Apache-2.0
#include "ChildProcess.h"

#include "Descriptor.h"

#include <csignal>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <sstream>

#include <sys/prctl.h>
#include <sys/wait.h>

namespace tamobench {

ChildProcess::ChildProcess(const std::function<void()>& body)
{
    std::cout.flush();
    const pid_t parent = ::getpid();
    m_pid = ::fork();
    if (m_pid < 0)
        throwErrno("fork");
    if (m_pid > 0)
        return;
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    // The parent may have gone before that took effect; nobody would end this process then.
    if (::getppid() != parent)
        ::_exit(EXIT_FAILURE);
    try {
        body();
        ::_exit(EXIT_SUCCESS);
    } catch (const std::exception& error) {
        std::cerr << "a process of the benchmark failed: " << error.what() << '\n';
    }
    ::_exit(EXIT_FAILURE);
}

ChildProcess::ChildProcess(ChildProcess&& other) noexcept : m_pid(std::exchange(other.m_pid, -1)) {}

ChildProcess& ChildProcess::operator=(ChildProcess&& other) noexcept
{
    std::swap(m_pid, other.m_pid);
    return *this;
}

ChildProcess::~ChildProcess()
{
    if (m_pid <= 0)
        return;
    ::kill(m_pid, SIGKILL);
    ::waitpid(m_pid, nullptr, 0);
}

int ChildProcess::wait()
{
    int status = 0;
    if (::waitpid(std::exchange(m_pid, -1), &status, 0) < 0)
        throwErrno("waitpid");
    return status;
}

void execute(const std::vector<std::string>& command)
{
    std::vector<char*> arguments;
    for (const std::string& argument : command)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    ::execvp(arguments[0], arguments.data());
    throwErrno("cannot run " + command[0]);
}

bool isInstalled(const std::string& program)
{
    const char* path = std::getenv("PATH");
    std::istringstream directories(path ? path : "");
    for (std::string directory; std::getline(directories, directory, ':');) {
        if (::access((directory + '/' + program).c_str(), X_OK) == 0)
            return true;
    }
    return false;
}

} // namespace tamobench
