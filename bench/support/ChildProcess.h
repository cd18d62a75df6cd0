// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_BENCH_CHILDPROCESS_H
#define TAMO_BENCH_CHILDPROCESS_H

#include <functional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace tamobench {

/** A process that ends with its owner: killed and waited for on destruction. */
class ChildProcess
{
public:
    ChildProcess() = default;

    /** Forks; the child runs `body` and ends. What `body` throws goes to standard error. */
    explicit ChildProcess(const std::function<void()>& body);

    ChildProcess(ChildProcess&& other) noexcept;
    ChildProcess& operator=(ChildProcess&& other) noexcept;
    ~ChildProcess();

    pid_t pid() const { return m_pid; }

    /** Waits for the process to end by itself; returns its wait status. */
    int wait();

private:
    pid_t m_pid = -1;
};

/** Replaces the calling process by a program, looked up in PATH; throws where that fails. */
[[noreturn]] void execute(const std::vector<std::string>& command);

/** Whether PATH has a program of that name. */
bool isInstalled(const std::string& program);

} // namespace tamobench

#endif
