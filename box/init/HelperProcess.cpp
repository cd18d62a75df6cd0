// SPDX-License-Identifier: Apache-2.0
#include "HelperProcess.h"

#include "common/Capabilities.h"
#include "common/DescriptorTable.h"
#include "common/Failure.h"
#include "common/Program.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace tamobox {

namespace {

constexpr std::size_t longestLine = 1000;

struct Pipe
{
    Descriptor reader;
    Descriptor writer;

    Pipe()
    {
        int ends[2];
        if (pipe2(ends, O_CLOEXEC) == -1)
            throw systemFailure("cannot create a pipe");
        reader = Descriptor(ends[0]);
        writer = Descriptor(ends[1]);
        fcntl(ends[0], F_SETFL, O_NONBLOCK);
    }
};

void useDefaultSignals()
{
    for (int signal = 1; signal < NSIG; ++signal)
        ::signal(signal, SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
}

} // namespace

HelperProcess::HelperProcess(EventLoop& loop, const std::vector<std::string>& arguments,
                             Privilege privilege, LineHandler onLine)
    : m_loop(loop), m_onLine(std::move(onLine))
{
    Pipe ready;
    Pipe output;
    m_pid = fork();
    if (m_pid == -1)
        throw systemFailure("cannot start " + arguments[0]);
    if (m_pid == 0)
        start(arguments, privilege, ready.writer.get(), output.writer.get());
    m_readyReader = std::move(ready.reader);
    m_outputReader = std::move(output.reader);
    m_loop.watch(m_readyReader.get(), [this] { readReady(); });
    m_loop.watch(m_outputReader.get(), [this] { readOutput(); });
}

HelperProcess::~HelperProcess()
{
    m_loop.unwatch(m_readyReader.get());
    m_loop.unwatch(m_outputReader.get());
}

void HelperProcess::setEnded()
{
    m_ended = true;
    while (m_outputReader)
        readOutput();
}

// Runs in the new process and does not return.
void HelperProcess::start(const std::vector<std::string>& arguments, Privilege privilege,
                          int readyWriter, int outputWriter)
{
    setpgid(0, 0);
    useDefaultSignals();
    const int null = open("/dev/null", O_RDWR | O_CLOEXEC);
    dup2(null, STDIN_FILENO);
    dup2(null, STDOUT_FILENO);
    dup2(outputWriter, STDERR_FILENO);
    closeAllDescriptorsBut({STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO, readyWriter});
    setInherited(readyWriter, true);
    int error = chdir("/") == -1 ? errno : 0;
    if (error == 0 && privilege == Privilege::None && !restrictCapabilities(noCapabilities))
        error = errno;
    if (error == 0) {
        std::vector<std::string> all = arguments;
        all.insert(all.begin() + 1, {"--ready-fd", std::to_string(readyWriter)});
        error = executeProgram(all);
    }
    dprintf(STDERR_FILENO, "%s\n", textForExecuteError(arguments[0], error).c_str());
    _exit(statusForExecuteError(error));
}

void HelperProcess::readReady()
{
    char byte = 0;
    const ssize_t size = read(m_readyReader.get(), &byte, 1);
    if (size == -1 && errno == EAGAIN)
        return;
    m_ready = size == 1;
    m_loop.unwatch(m_readyReader.get());
    m_readyReader.reset();
}

void HelperProcess::readOutput()
{
    std::array<char, 4096> buffer;
    const ssize_t size = read(m_outputReader.get(), buffer.data(), buffer.size());
    const bool nothingYet = size == -1 && errno == EAGAIN;
    for (ssize_t i = 0; i < size; ++i) {
        const char c = buffer[static_cast<std::size_t>(i)];
        if (c != '\n') {
            m_unfinishedLine += c;
            if (m_unfinishedLine.size() < longestLine)
                continue;
        }
        m_onLine(std::exchange(m_unfinishedLine, {}));
    }
    if (size > 0 || (nothingYet && !m_ended))
        return;
    // The end, or as good as the end: a process that it left behind may hold the pipe open.
    m_loop.unwatch(m_outputReader.get());
    m_outputReader.reset();
    if (!m_unfinishedLine.empty())
        m_onLine(std::exchange(m_unfinishedLine, {}));
}

} // namespace tamobox
