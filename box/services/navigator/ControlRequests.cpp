// SPDX-License-Identifier: Apache-2.0
#include "ControlRequests.h"

#include "services/RequestValues.h"

#include "common/Failure.h"
#include "pps/ObjectFile.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace tamobox {

namespace {

constexpr const char* mailbox = "services/navigator/control";
constexpr int floodBegins = 4096;              // messages
constexpr std::size_t mostUris = 16;           // of one application
constexpr std::size_t longestShownText = 1024; // bytes
constexpr std::size_t longestId = 256;         // bytes
constexpr int longestExtension = 30000;        // milliseconds
constexpr std::size_t mostEarlyRequests = 64;
// An application asks for events in a thread that is starting when its first requests are sent.
constexpr auto arrivalLimit = std::chrono::seconds(2);

constexpr const char* noApplication = "it is no application, because it has not asked for events";

struct NoApplication : Failure
{
    NoApplication() : Failure(noApplication) {}
};

// What may stand in the path of a URL as it is.
bool isUnreserved(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           std::string("-._~/").find(c) != std::string::npos;
}

std::string fileUrl(const std::string& path)
{
    constexpr const char* digits = "0123456789ABCDEF";
    std::string url = "file://";
    for (const char c : path) {
        const auto byte = static_cast<unsigned char>(c);
        if (isUnreserved(c))
            url += c;
        else
            url += {'%', digits[byte >> 4], digits[byte & 15]};
    }
    return url;
}

} // namespace

ControlRequests::ControlRequests(EventLoop& loop, Surroundings surroundings)
    : m_surroundings(std::move(surroundings))
    , m_overdue(loop, [this] { refuseOverdue(); })
    , m_server(
          loop, mailbox,
          [this](MailboxServer::Client client, MessageReader& request) {
              handle(m_clients[client], request);
          },
          [this](MailboxServer::Client client) { m_clients.erase(client); },
          [this](MailboxServer::Client client, pid_t process) { m_clients[client] = process; })
{
}

void ControlRequests::catchUp()
{
    for (int i = 0; i < floodBegins && !m_isHandling && m_server.handOutNext(); ++i) {
    }
}

const std::map<std::string, ControlRequests::Handler>& ControlRequests::handlers()
{
    static const std::map<std::string, Handler> table = {
        {"addUri", &ControlRequests::addUri},
        {"badge", &ControlRequests::setBadge},
        {"closePrompt", &ControlRequests::setClosePrompt},
        {"extendTimeout", &ControlRequests::extendTimeout},
        {"invoke", &ControlRequests::invoke},
        {"openFile", &ControlRequests::openFile},
        {"orientationCheckResponse", &ControlRequests::answerCheck},
        {"orientationDone", &ControlRequests::answerOrientation},
        {"rotationLock", &ControlRequests::lockRotation},
        {"setOrientation", &ControlRequests::setOrientation},
        {"setWindowAngle", &ControlRequests::setWindowAngle},
        {"swipeStart", &ControlRequests::wantSwipeStart},
    };
    return table;
}

void ControlRequests::handle(pid_t process, MessageReader& request)
{
    const bool wasHandling = std::exchange(m_isHandling, true);
    try {
        carryOut(process, request);
        m_surroundings.publish();
    } catch (const ObjectFailure&) {
        throw; // the service's own objects fail, which is not the client's doing
    } catch (const NoApplication&) {
        keepForLater(process);
    } catch (const Failure& failure) {
        complain(process, failure.what());
    }
    m_isHandling = wasHandling;
}

void ControlRequests::complain(pid_t process, const std::string& reason)
{
    const std::string who = process == 0 ? std::string("a process outside the box")
                                         : "process " + std::to_string(process);
    m_surroundings.complaints.add("a request of " + who + " to " + mailbox +
                                  " has no effect: " + reason);
}

void ControlRequests::keepForLater(pid_t process)
{
    if (process == 0 || m_early.size() == mostEarlyRequests) {
        complain(process, noApplication);
        return;
    }
    m_early.push_back({process, m_server.currentMessage(), EventLoop::Clock::now() + arrivalLimit});
    m_overdue.startAt(m_early.front().deadline);
}

void ControlRequests::applicationCame(pid_t process)
{
    std::vector<EarlyRequest> due;
    for (auto early = m_early.begin(); early != m_early.end();) {
        if (early->process == process) {
            due.push_back(std::move(*early));
            early = m_early.erase(early);
        } else {
            ++early;
        }
    }
    for (const EarlyRequest& early : due) {
        MessageReader request(early.text);
        if (request.next() && request.enter(nullptr))
            handle(process, request);
    }
}

void ControlRequests::processEnded(pid_t process)
{
    m_early.erase(
        std::remove_if(m_early.begin(), m_early.end(),
                       [process](const EarlyRequest& early) { return early.process == process; }),
        m_early.end());
}

void ControlRequests::refuseOverdue()
{
    const auto now = EventLoop::Clock::now();
    while (!m_early.empty() && m_early.front().deadline <= now) {
        complain(m_early.front().process, noApplication);
        m_early.erase(m_early.begin());
    }
    if (!m_early.empty())
        m_overdue.startAt(m_early.front().deadline);
}

void ControlRequests::carryOut(pid_t process, MessageReader& request)
{
    const std::optional<std::string> name = request.string("msg");
    if (!name)
        throw Failure("msg is missing");
    const auto handler = handlers().find(*name);
    if (handler == handlers().end())
        throw Failure("there is no request " + quoted(*name));
    (this->*handler->second)(process, request);
}

WindowGroup& ControlRequests::applicationOf(pid_t process)
{
    // Its request may have been faster than its arrival, which comes through another mailbox.
    if (m_surroundings.applications.find(process) == nullptr)
        m_surroundings.post.catchUp();
    WindowGroup* const application = m_surroundings.applications.find(process);
    if (application == nullptr)
        throw NoApplication();
    return *application;
}

void ControlRequests::answerCheck(pid_t process, MessageReader& request)
{
    WindowGroup& application = applicationOf(process);
    const std::string id = requiredText(request, "id");
    m_surroundings.turns.answerCheck(application.process, id, requiredFlag(request, "accept"));
}

void ControlRequests::answerOrientation(pid_t process, MessageReader& request)
{
    WindowGroup& application = applicationOf(process);
    m_surroundings.turns.answerOrientation(application.process, requiredText(request, "id"));
}

void ControlRequests::setOrientation(pid_t process, MessageReader& request)
{
    WindowGroup& application = applicationOf(process);
    const int angle = requiredAngle(request);
    m_surroundings.turns.wish(application, angle, requiredText(request, "id", longestId));
}

void ControlRequests::setWindowAngle(pid_t process, MessageReader& request)
{
    WindowGroup& application = applicationOf(process);
    application.angle = requiredAngle(request);
}

void ControlRequests::lockRotation(pid_t process, MessageReader& request)
{
    WindowGroup& application = applicationOf(process);
    application.rotationLocked = requiredFlag(request, "locked");
}

void ControlRequests::extendTimeout(pid_t process, MessageReader& request)
{
    WindowGroup& application = applicationOf(process);
    const int time = requiredInteger(request, "milliseconds", 1, longestExtension);
    m_surroundings.departures.extend(application.process, std::chrono::milliseconds(time));
}

void ControlRequests::wantSwipeStart(pid_t process, MessageReader& request)
{
    WindowGroup& application = applicationOf(process);
    application.wantsSwipeStart = requiredFlag(request, "wanted");
}

void ControlRequests::invoke(pid_t, MessageReader& request)
{
    handOver(requiredText(request, "url", longestText));
}

void ControlRequests::openFile(pid_t, MessageReader& request)
{
    const std::string path = requiredText(request, "path", longestText / 3);
    if (path.empty() || path[0] != '/')
        throw Failure("path must begin with a slash, and is " + quoted(path));
    handOver(fileUrl(path));
}

void ControlRequests::handOver(const std::string& url)
{
    WindowGroup* const application = m_surroundings.applications.foreground();
    if (application == nullptr)
        throw Failure("no application is in the foreground to open " + quoted(url));
    NavigatorEvent event(EventCode::Invoke);
    event.data = url;
    const EventPost::Outcome outcome = m_surroundings.post.tell(application->process, event);
    if (outcome.unread > 0 || outcome.reached == 0)
        throw Failure(application->group + ", in the foreground, does not read its events; " +
                      quoted(url) + " is not opened");
}

void ControlRequests::addUri(pid_t process, MessageReader& request)
{
    WindowGroup& application = applicationOf(process);
    if (application.uris.size() >= mostUris)
        throw Failure("it has added " + std::to_string(mostUris) + " URLs already");
    const auto text = [&](const char* member) {
        return requiredText(request, member, longestShownText);
    };
    // The navigator chooses the category of one that has none.
    const std::string category = request.has("category") ? text("category") : std::string();
    application.uris.push_back({text("icon"), text("label"), category, text("url")});
}

void ControlRequests::setClosePrompt(pid_t process, MessageReader& request)
{
    WindowGroup& application = applicationOf(process);
    if (!request.has("title") && !request.has("message")) {
        application.closePrompt.reset();
        return;
    }
    const std::string title = requiredText(request, "title", longestShownText);
    application.closePrompt =
        ClosePrompt{title, requiredText(request, "message", longestShownText)};
}

void ControlRequests::setBadge(pid_t process, MessageReader& request)
{
    WindowGroup& application = applicationOf(process);
    application.badge = optionalInteger(request, "badge");
}

} // namespace tamobox
