// SPDX-License-Identifier: Apache-2.0
#include "BoxInit.h"

#include "common/BoxEnvironment.h"
#include "common/ControlMessage.h"
#include "common/DescriptorTable.h"
#include "common/Failure.h"
#include "common/Json.h"
#include "common/Program.h"
#include "pps/MessageWriter.h"
#include "pps/ObjectCreation.h"
#include "pps/ObjectFile.h"
#include "services/ServiceTable.h"

#include <fcntl.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>

namespace tamobox {

namespace {

constexpr auto startLimit = std::chrono::seconds(10);
// For commands that have their answer in /pps already, to read it.
constexpr auto farewellLimit = std::chrono::milliseconds(100);
constexpr std::size_t longestShownCommand = 16 * 1024;

Descriptor openForGuests(const char* path)
{
    Descriptor opened(open(path, O_RDONLY | O_CLOEXEC));
    if (!opened)
        throw systemFailure(std::string("cannot open ") + path);
    return opened;
}

} // namespace

BoxInit::BoxInit(BoxPlan plan) : m_plan(std::move(plan)), m_callersDescriptors(openDescriptors())
{
    m_loop.watch(m_plan.controlSocket, [this] { readControl(); });
    m_loop.watch(m_signals.descriptor(), [this] { readSignals(); });
}

int BoxInit::run()
{
    mountProcesses();
    m_introduction.userNamespace = openForGuests("/proc/self/ns/user");
    m_introduction.mountNamespace = openForGuests("/proc/self/ns/mnt");
    m_introduction.processNamespace = openForGuests("/proc/self/ns/pid");
    m_introduction.rootDirectory = openForGuests("/");
    startFilesystem();
    if (!restrictCapabilities(m_plan.capabilities))
        throw systemFailure("cannot give up the capabilities that mounting took");
    createObjects();
    startServices();
    startApplication();
    m_loop.watch(m_plan.listeningSocket, [this] { introduce(); });
    m_loop.runUntil([this] { return m_exitStatus != -1; }, EventLoop::Clock::time_point::max());
    m_loop.runUntil([this] { return m_guests.empty(); }, EventLoop::Clock::now() + farewellLimit);
    // A service may have said why the application had to end.
    for (const auto& service : m_services)
        service->readRest();
    return m_exitStatus;
}

// The box has its own process numbers, and so it needs its own /proc. Where the machine refuses
// that (as containers that hide parts of /proc do), the machine's stays, with the machine's
// numbers.
void BoxInit::mountProcesses()
{
    mount("proc", "/proc", "proc", MS_NOSUID | MS_NODEV | MS_NOEXEC, nullptr);
}

void BoxInit::startFilesystem()
{
    m_filesystem = std::make_unique<HelperProcess>(
        m_loop, std::vector<std::string>{findOwnProgram("ppsfs"), "/pps"},
        HelperProcess::Privilege::Kept, [this](const std::string& line) {
            m_filesystemComplaint = line;
            if (m_application)
                note(line);
        });
    const bool inTime =
        waitFor([this] { return m_filesystem->isReady() || m_filesystem->hasEnded(); });
    if (!m_filesystem->isReady())
        throw Failure("the /pps filesystem did not start: " +
                      (!inTime                         ? "it was not ready within 10 s"
                       : m_filesystemComplaint.empty() ? "it ended without a word"
                                                       : m_filesystemComplaint));
}

void BoxInit::createObjects()
{
    for (const ServiceEntry& service : serviceTable())
        for (const ServiceObject& object : service.objects)
            createObject(object.path, object.mode);
    if (m_plan.catalogue.empty())
        return;
    MessageWriter message;
    message.object("catalogue").add("text", m_plan.catalogue);
    ObjectFile("box/catalogue", O_WRONLY).write(message.text());
}

void BoxInit::startServices()
{
    if (m_plan.stateDirectory.empty())
        unsetenv(stateVariable); // the caller may have it from somewhere
    else
        setenv(stateVariable, m_plan.stateDirectory.c_str(), 1);
    const auto isLeftOut = [this](const std::string& service) {
        return std::find(m_plan.leftOut.begin(), m_plan.leftOut.end(), service) !=
               m_plan.leftOut.end();
    };
    for (const ServiceEntry& service : serviceTable())
        if (!isLeftOut(service.program))
            m_services.push_back(std::make_unique<SupervisedService>(
                m_loop, service.program, [this](const std::string& text) { note(text); }));
    for (const auto& service : m_services) {
        waitFor([&] { return service->isReady() || service->pid() == -1; });
        if (!service->isReady())
            throw Failure(service->name() + " did not start: " +
                          (service->pid() != -1          ? "it was not ready within 10 s"
                           : service->lastLine().empty() ? "it ended without a word"
                                                         : service->lastLine()));
    }
}

void BoxInit::startApplication()
{
    if (m_plan.workingDirectory.empty() || chdir(m_plan.workingDirectory.c_str()) == -1) {
        const std::string reason = m_plan.workingDirectory.empty() ? "removed" : errorText(errno);
        note("the working directory cannot be entered in the box (" + reason +
             "); the application starts in /");
        if (chdir("/") == -1)
            throw systemFailure("cannot enter /");
    }
    m_application = std::make_unique<Application>(m_plan);
    // What the caller had opened is the application's alone now: when it closes a pipe, the pipe's
    // other end must notice.
    for (const int fd : m_callersDescriptors)
        if (fd > STDERR_FILENO && fd != m_plan.controlSocket && fd != m_plan.listeningSocket)
            close(fd);
    sendControlMessage(m_plan.controlSocket, {ControlMessage::Kind::Ready, m_application->pid()});
}

// While the box is being built up, too, it ends as soon as it should.
bool BoxInit::waitFor(const std::function<bool()>& condition)
{
    const bool holds = m_loop.runUntil([&] { return m_exitStatus != -1 || condition(); },
                                       EventLoop::Clock::now() + startLimit);
    if (m_exitStatus != -1)
        throw Failure("the box was ended before it was ready", m_exitStatus);
    return holds;
}

void BoxInit::readControl()
{
    const std::optional<ControlMessage> message = receiveControlMessage(m_plan.controlSocket);
    if (!message) {
        // The launcher has gone, and nobody is left to end the box for.
        m_loop.unwatch(m_plan.controlSocket);
        m_exitStatus = status::boxFailed;
        return;
    }
    // A signal to the whole group was sent to this process before the launcher could tell of it.
    readSignals();
    if (message->kind != ControlMessage::Kind::Signal || m_exitStatus != -1)
        return;
    if (m_application)
        m_application->passSignal(message->number);
    else
        m_exitStatus = status::signalBase + message->number;
}

void BoxInit::readSignals()
{
    while (const std::optional<signalfd_siginfo> signal = m_signals.next()) {
        if (signal->ssi_signo == SIGCHLD)
            reapChildren();
        else if (m_application && isFromAnotherProcess(*signal))
            m_application->noteGroupSignal(static_cast<int>(signal->ssi_signo));
    }
}

void BoxInit::reapChildren()
{
    // Process 1 is the parent of every orphan, too; those need only be reaped.
    int result = 0;
    std::vector<std::pair<SupervisedService*, int>> endedServices;
    for (pid_t pid = 0; (pid = waitpid(-1, &result, WNOHANG)) > 0;) {
        if (m_application && pid == m_application->pid())
            m_exitStatus = statusForWaitResult(result);
        else if (m_filesystem && pid == m_filesystem->pid())
            filesystemEnded(result);
        for (const auto& service : m_services)
            if (pid == service->pid())
                endedServices.emplace_back(service.get(), result);
    }
    if (m_exitStatus != -1)
        return;
    for (const auto& [service, serviceResult] : endedServices)
        service->ended(serviceResult, m_filesystem && !m_filesystem->hasEnded());
}

void BoxInit::filesystemEnded(int waitResult)
{
    m_filesystem->setEnded();
    if (m_application)
        note("ppsfs " + textForWaitResult(waitResult) +
             "; /pps and the services are gone, the application runs on without them");
}

void BoxInit::introduce()
{
    Json json;
    json.startObject().key("box").string(m_plan.boxName);
    json.key("application").startObject().key("pid").number(m_application->pid());
    json.key("command").startArray();
    std::size_t shown = 0;
    for (const std::string& argument : m_plan.arguments) {
        shown += argument.size();
        json.string(shown > longestShownCommand ? "..." : argument);
        if (shown > longestShownCommand)
            break;
    }
    json.endArray().endObject();
    const auto addProcess = [&](const std::string& name, pid_t pid) {
        json.startObject().key("name").string(name).key("pid");
        pid == -1 ? json.null() : json.number(pid);
        json.endObject();
    };
    json.key("services").startArray();
    addProcess("ppsfs", m_filesystem->hasEnded() ? -1 : m_filesystem->pid());
    for (const auto& service : m_services)
        addProcess(service->name(), service->pid());
    json.endArray().endObject();
    m_introduction.status = json.text();
    Descriptor connection = boxsocket::introduce(m_plan.listeningSocket, m_introduction);
    if (!connection)
        return;
    const int guest = connection.get();
    m_guests[guest] = std::move(connection);
    m_loop.watch(guest, [this, guest] {
        m_loop.unwatch(guest);
        m_guests.erase(guest);
    });
}

void BoxInit::note(const std::string& text)
{
    sendControlMessage(m_plan.controlSocket, {ControlMessage::Kind::Note, 0, text});
}

} // namespace tamobox
