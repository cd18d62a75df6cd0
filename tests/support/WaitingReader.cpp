// SPDX-License-Identifier: Apache-2.0
#include "WaitingReader.h"

#include <signal.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <fstream>
#include <stdexcept>
#include <string>
#include <utility>

namespace tamotest {
namespace {

constexpr std::chrono::seconds Timeout(10);
constexpr int InterruptingSignal = SIGUSR1;

void ignoreQuietly(int) {}

void installInterrupt()
{
    struct sigaction action
    {
    };
    action.sa_handler = ignoreQuietly;
    action.sa_flags = SA_RESTART; // which must not keep the read waiting
    sigaction(InterruptingSignal, &action, nullptr);
}

} // namespace

bool waitUntilSleepsIn(pid_t process, pid_t thread, long systemCall)
{
    const std::string path =
        "/proc/" + std::to_string(process) + "/task/" + std::to_string(thread) + "/syscall";
    const auto deadline = std::chrono::steady_clock::now() + Timeout;
    while (std::chrono::steady_clock::now() < deadline) {
        std::ifstream file(path);
        long current = -1;
        if (file >> current && current == systemCall) // a running thread has no number there
            return true;
        std::this_thread::yield();
    }
    return false;
}

WaitingReader::WaitingReader(const PpsDescriptor& descriptor)
{
    installInterrupt();
    std::packaged_task<ReadResult()> task([this, &descriptor] {
        m_threadId.set_value(static_cast<pid_t>(syscall(SYS_gettid)));
        return descriptor.tryRead();
    });
    m_result = task.get_future();
    m_thread = std::thread(std::move(task));
    if (!waitUntilSleepsIn(getpid(), m_threadId.get_future().get(), SYS_read) && !isDone())
        throw std::runtime_error("the reader does not wait");
}

WaitingReader::~WaitingReader()
{
    // A test that failed may have left the thread waiting.
    while (m_result.valid() && !isDone()) {
        interrupt();
        m_result.wait_for(std::chrono::milliseconds(1));
    }
    m_thread.join();
}

void WaitingReader::interrupt()
{
    pthread_kill(m_thread.native_handle(), InterruptingSignal);
}

bool WaitingReader::isDone() const
{
    return m_result.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
}

ReadResult WaitingReader::result()
{
    if (m_result.wait_for(Timeout) != std::future_status::ready)
        return {ETIMEDOUT, {}};
    return m_result.get();
}

} // namespace tamotest
