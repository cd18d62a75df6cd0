// SPDX-License-Identifier: Apache-2.0
#include "Application.h"

#include "common/Failure.h"
#include "common/Program.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <vector>

namespace tamobox {

namespace {

// The longest that the launcher takes to tell of a signal that the whole group has got.
constexpr auto launchersDelay = std::chrono::milliseconds(200);

void takeStandardStreams(const std::array<int, 3>& streams)
{
    // They lie above the descriptors that they are copied to, so that none overwrites another.
    for (int fd = 0; fd < static_cast<int>(streams.size()); ++fd) {
        const int stream = streams[static_cast<std::size_t>(fd)];
        if (stream == -1)
            close(fd);
        else
            dup2(stream, fd);
    }
}

// Runs in the new process; returns the reason where the application cannot be executed.
int becomeApplication(const BoxPlan& plan)
{
    std::vector<char*> environment;
    for (const std::string& entry : plan.environment)
        environment.push_back(const_cast<char*>(entry.c_str()));
    environment.push_back(nullptr);
    takeStandardStreams(plan.standardStreams);
    signal(SIGCHLD, plan.childSignalIgnored ? SIG_IGN : SIG_DFL);
    if (!restrictCapabilities(plan.capabilities))
        return errno;
    sigprocmask(SIG_SETMASK, &plan.signalMask, nullptr);
    environ = environment.data();
    return executeProgram(plan.arguments);
}

} // namespace

Application::Application(const BoxPlan& plan)
{
    int errorPipe[2];
    if (pipe2(errorPipe, O_CLOEXEC) == -1)
        throw systemFailure("cannot create a pipe");
    const Descriptor reader(errorPipe[0]);
    Descriptor writer(errorPipe[1]);
    m_pid = fork();
    if (m_pid == -1)
        throw systemFailure("cannot start the application");
    if (m_pid == 0) {
        const int error = becomeApplication(plan);
        const ssize_t ignored = write(writer.get(), &error, sizeof error);
        _exit(ignored == sizeof error ? statusForExecuteError(error) : status::boxFailed);
    }
    writer.reset();
    int error = 0;
    // The pipe closes without a word when the program has been executed.
    if (read(reader.get(), &error, sizeof error) == sizeof error)
        throw Failure(textForExecuteError(plan.arguments[0], error), statusForExecuteError(error));
}

void Application::noteGroupSignal(int signal)
{
    m_groupSignals[static_cast<std::size_t>(signal)] = std::chrono::steady_clock::now();
}

// Not by counting: two signals of a kind that come close together may be one to this process and
// two to the launcher, or the other way round.
void Application::passSignal(int signal)
{
    const auto since =
        std::chrono::steady_clock::now() - m_groupSignals[static_cast<std::size_t>(signal)];
    if (since > launchersDelay)
        kill(m_pid, signal);
}

} // namespace tamobox
