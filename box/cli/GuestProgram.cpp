// SPDX-License-Identifier: Apache-2.0
#include "GuestProgram.h"

#include "BoxEntrance.h"
#include "GroupWitness.h"

#include "common/BoxEnvironment.h"
#include "common/BoxSocket.h"
#include "common/Descriptor.h"
#include "common/EventLoop.h"
#include "common/Failure.h"
#include "common/Program.h"
#include "common/SignalQueue.h"
#include "launcher/TerminalKeeper.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <optional>

namespace tamobox {

namespace {

// Runs in the new process; returns the reason where the program cannot be executed.
int becomeGuest(const std::vector<std::string>& command, const sigset_t& signalMask)
{
    // It must not stay behind when this command is killed: nobody would be left to wait for it.
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    sigprocmask(SIG_SETMASK, &signalMask, nullptr);
    return executeProgram(command);
}

pid_t startGuest(const std::vector<std::string>& command, const sigset_t& signalMask)
{
    int errorPipe[2];
    if (pipe2(errorPipe, O_CLOEXEC) == -1)
        throw systemFailure("cannot create a pipe");
    const Descriptor reader(errorPipe[0]);
    Descriptor writer(errorPipe[1]);
    const pid_t pid = fork();
    if (pid == -1)
        throw systemFailure("cannot start a process in the box");
    if (pid == 0) {
        const int error = becomeGuest(command, signalMask);
        const ssize_t written = write(writer.get(), &error, sizeof error);
        _exit(written == sizeof error ? statusForExecuteError(error) : status::boxFailed);
    }
    writer.reset();
    int error = 0;
    if (read(reader.get(), &error, sizeof error) == sizeof error) {
        // The box could not end before somebody has waited for this.
        waitpid(pid, nullptr, 0);
        throw Failure(textForExecuteError(command[0], error), statusForExecuteError(error));
    }
    return pid;
}

bool isRunning(const std::string& boxName)
{
    for (const RunningBox& box : boxsocket::running())
        if (box.name == boxName && box.user == getuid())
            return true;
    return false;
}

// The terminal's keys, and what is sent to the whole group, reach the guest themselves while it is
// in this group; a shell with job control makes one of its own.
bool reachesGuestItself(const signalfd_siginfo& signal, pid_t guest, GroupWitness& witness)
{
    if (!isFromAnotherProcess(signal))
        return true;
    return witness.hasSeen(static_cast<int>(signal.ssi_signo)) && getpgid(guest) == getpgrp();
}

int waitForGuest(pid_t guest, SignalQueue& signals, GroupWitness& witness)
{
    std::optional<int> result;
    EventLoop loop;
    loop.watch(signals.descriptor(), [&] {
        while (const auto signal = signals.next()) {
            int waitResult = 0;
            if (signal->ssi_signo != SIGCHLD) {
                if (!reachesGuestItself(*signal, guest, witness))
                    kill(guest, static_cast<int>(signal->ssi_signo));
            } else if (waitpid(guest, &waitResult, WNOHANG) == guest) {
                result = waitResult;
            }
        }
    });
    loop.runUntil([&] { return result.has_value(); }, EventLoop::Clock::time_point::max());
    return *result;
}

} // namespace

int runGuest(const std::string& boxName, const std::vector<std::string>& command)
{
    const std::string directory = workingDirectory();
    GroupWitness witness; // outside the box, whose processes are none but the guest's
    const EnteredBox box = enterBox(boxName, Depth::Processes);
    setenv(boxVariable, box.name.c_str(), 1);
    if (directory.empty() || chdir(directory.c_str()) == -1)
        throw Failure("the working directory cannot be entered in the box (" +
                      (directory.empty() ? "removed" : errorText(errno)) + "); choose another one");
    const TerminalKeeper terminalKeeper;
    std::signal(SIGCHLD, SIG_DFL);
    SignalQueue signals({SIGTSTP, SIGTTIN, SIGTTOU});
    const pid_t guest = startGuest(command, signals.previousMask());
    const int exitStatus = statusForWaitResult(waitForGuest(guest, signals, witness));
    if (exitStatus == status::signalBase + SIGKILL && !isRunning(box.name))
        throw Failure("the box '" + box.name + "' has ended", exitStatus);
    return exitStatus;
}

} // namespace tamobox
