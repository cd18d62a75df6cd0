// SPDX-License-Identifier: Apache-2.0
#include "Launcher.h"

#include "KeptState.h"
#include "PrivateRoot.h"
#include "TerminalKeeper.h"

#include "common/BoxEnvironment.h"
#include "common/BoxPlan.h"
#include "common/BoxSocket.h"
#include "common/ControlMessage.h"
#include "common/DescriptorTable.h"
#include "common/Failure.h"
#include "common/Program.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>

#include <array>
#include <cerrno>
#include <cstdio>

namespace tamobox {

namespace {

// Where the application's standard streams are kept on their way into the box: out of the way of
// what they will be copied to.
constexpr int firstKeptDescriptor = 10;

constexpr std::size_t longestComplaint = 4000;

// A stream that the caller had closed is closed for the application, too.
std::array<Descriptor, 3> keepStandardStreams()
{
    std::array<Descriptor, 3> kept;
    for (int fd = 0; fd < static_cast<int>(kept.size()); ++fd)
        if (!isFilledDescriptor(fd))
            kept[static_cast<std::size_t>(fd)] =
                Descriptor(fcntl(fd, F_DUPFD, firstKeptDescriptor));
    return kept;
}

// When the application closes a pipe, the pipe's other end must notice, so that nobody else may
// hold it. Standard error stays: the box's notes go there.
void leaveToApplication(const std::vector<int>& callersDescriptors)
{
    const Descriptor null(open("/dev/null", O_RDWR | O_CLOEXEC));
    dup2(null.get(), STDIN_FILENO);
    dup2(null.get(), STDOUT_FILENO);
    for (const int fd : callersDescriptors)
        if (fd > STDERR_FILENO)
            close(fd);
}

std::string firstLine(const std::string& text)
{
    return text.substr(0, text.find('\n'));
}

bool isIgnored(int signal)
{
    struct sigaction action = {};
    sigaction(signal, nullptr, &action);
    return action.sa_handler == SIG_IGN;
}

} // namespace

// The keys that stop a job stop the launcher, too, so that the shell notices.
Launcher::Launcher(LaunchOptions options, ReadyHandler onReady)
    : m_options(std::move(options))
    , m_onReady(std::move(onReady))
    , m_callersDescriptors(openDescriptors())
    , m_signals({SIGTSTP, SIGTTIN, SIGTTOU})
{
}

int Launcher::run()
{
    const TerminalKeeper terminalKeeper;
    start();
    m_loop.watch(m_control.get(), [this] { readControl(); });
    m_loop.watch(m_complaintReader.get(), [this] { readComplaint(); });
    m_loop.watch(m_signals.descriptor(), [this] { readSignals(); });
    m_loop.runUntil([this] { return m_nothingLeft && !m_control && !m_complaintReader; },
                    EventLoop::Clock::time_point::max());
    if (m_failure)
        throw Failure(*m_failure, m_exitStatus.value_or(status::boxFailed));
    if (m_exitStatus)
        return *m_exitStatus;
    if (!m_complaint.empty())
        throw Failure("the box could not be set up: " + firstLine(m_complaint) +
                          "; 'tamo-box doctor' says what is missing",
                      status::boxFailed);
    throw Failure("the box was killed, and the application with it", status::boxFailed);
}

void Launcher::start()
{
    const Descriptor listening = boxsocket::listen(m_options.boxName);
    int control[2];
    int complaint[2];
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, control) == -1)
        throw systemFailure("cannot create a socket");
    m_control = Descriptor(control[0]);
    const Descriptor controlOfBox(control[1]);
    if (pipe2(complaint, O_CLOEXEC) == -1)
        throw systemFailure("cannot create a pipe");
    m_complaintReader = Descriptor(complaint[0]);
    const Descriptor complaintWriter(complaint[1]);

    const std::array<Descriptor, 3> streams = keepStandardStreams();
    BoxPlan plan;
    plan.boxName = m_options.boxName;
    plan.controlSocket = controlOfBox.get();
    plan.listeningSocket = listening.get();
    for (std::size_t i = 0; i < streams.size(); ++i)
        plan.standardStreams[i] = streams[i].get();
    plan.workingDirectory = workingDirectory();
    plan.capabilities = permittedCapabilities();
    plan.signalMask = m_signals.previousMask();
    plan.childSignalIgnored = isIgnored(SIGCHLD);
    plan.arguments = m_options.command;
    plan.environment = environmentInBox(m_options.boxName);
    if (m_options.isKept)
        plan.stateDirectory = keptStateDirectory(m_options.boxName);
    plan.catalogue = m_options.catalogue;
    plan.leftOut = m_options.leftOut;
    const Descriptor planMemory = plan.toDescriptor();
    std::vector<std::string> command = privateRootCommand();
    command.insert(command.end(),
                   {findOwnProgram("tamo-box-init"), std::to_string(planMemory.get())});

    // An ignored SIGCHLD would take the children's ends away from waitpid(), here and in bwrap.
    signal(SIGCHLD, SIG_DFL);
    // When bwrap is killed, its child comes here and is waited for here.
    prctl(PR_SET_CHILD_SUBREAPER, 1);
    const pid_t bwrap = fork();
    if (bwrap == -1)
        throw systemFailure("cannot start the box");
    if (bwrap == 0) {
        setInherited(controlOfBox.get(), true);
        setInherited(listening.get(), true);
        becomeBox(command, complaintWriter.get());
    }
    leaveToApplication(m_callersDescriptors);
}

// Runs in the new process and does not return.
void Launcher::becomeBox(const std::vector<std::string>& command, int complaintWriter)
{
    // What reaches the whole process group is for the application; it must not end the box under
    // it.
    sigset_t all;
    sigfillset(&all);
    sigprocmask(SIG_SETMASK, &all, nullptr);
    const int null = open("/dev/null", O_RDWR | O_CLOEXEC);
    dup2(null, STDIN_FILENO);
    dup2(null, STDOUT_FILENO);
    dup2(complaintWriter, STDERR_FILENO);
    const int error = executeProgram(command);
    dprintf(STDERR_FILENO, "%s\n", textForExecuteError(command[0], error).c_str());
    _exit(status::boxFailed);
}

void Launcher::readControl()
{
    const std::optional<ControlMessage> message = receiveControlMessage(m_control.get());
    if (!message) {
        m_loop.unwatch(m_control.get());
        m_control.reset();
        return;
    }
    switch (message->kind) {
    case ControlMessage::Kind::Ready:
        m_onReady(m_options.boxName, message->number);
        break;
    case ControlMessage::Kind::Note:
        std::fprintf(stderr, "tamo-box: %s\n", message->text.c_str());
        break;
    case ControlMessage::Kind::Failed:
        m_failure = message->text;
        m_exitStatus = message->number;
        break;
    case ControlMessage::Kind::Ended:
        m_exitStatus = message->number;
        break;
    case ControlMessage::Kind::Signal:
        break; // goes the other way only
    }
}

void Launcher::readSignals()
{
    while (const std::optional<signalfd_siginfo> signal = m_signals.next()) {
        if (signal->ssi_signo == SIGCHLD)
            reapChildren();
        else if (isFromAnotherProcess(
                     *signal)) // the terminal's keys reach the application themselves
            sendControlMessage(m_control.get(), {ControlMessage::Kind::Signal,
                                                 static_cast<std::int32_t>(signal->ssi_signo)});
    }
}

void Launcher::readComplaint()
{
    std::array<char, 1024> buffer;
    const ssize_t size = read(m_complaintReader.get(), buffer.data(), buffer.size());
    if (size <= 0) {
        m_loop.unwatch(m_complaintReader.get());
        m_complaintReader.reset();
    } else if (m_complaint.size() < longestComplaint) {
        m_complaint.append(buffer.data(), static_cast<std::size_t>(size));
    }
}

void Launcher::reapChildren()
{
    pid_t pid = 0;
    while ((pid = waitpid(-1, nullptr, WNOHANG)) > 0)
        continue;
    m_nothingLeft = pid == -1 && errno == ECHILD;
}

} // namespace tamobox
