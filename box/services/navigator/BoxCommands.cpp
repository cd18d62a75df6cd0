// SPDX-License-Identifier: Apache-2.0
#include "BoxCommands.h"

#include "services/RequestValues.h"

#include "common/Duration.h"
#include "common/Failure.h"

namespace tamobox {

namespace {

constexpr int defaultWait = 2000;  // milliseconds
constexpr int defaultLimit = 2000; // milliseconds
constexpr int defaultGrace = 3000; // milliseconds
constexpr int longest = static_cast<int>(longestDuration.count());

std::chrono::milliseconds duration(const MessageReader& arguments, const char* name, int lowest,
                                   int usual)
{
    return std::chrono::milliseconds(
        optionalInteger(arguments, name, lowest, longest).value_or(usual));
}

} // namespace

std::map<std::string, ControlMailbox::Command> BoxCommands::table()
{
    const auto tells = [this](EventCode code) {
        return [this, code](const ControlRequest& request, MessageReader& arguments) {
            return tellEach(request, arguments, code);
        };
    };
    const auto sets = [this](WindowState state) {
        return [this, state](const ControlRequest& request, MessageReader& arguments) {
            return setState(request, arguments, state);
        };
    };
    const auto activates = [this](bool active) {
        return [this, active](const ControlRequest& request, MessageReader& arguments) {
            return setActive(request, arguments, active);
        };
    };
    const auto locks = [this](bool locked) {
        return [this, locked](const ControlRequest& request, MessageReader&) {
            return setLocked(request, locked);
        };
    };
    const auto calls =
        [this](Outcome (BoxCommands::*command)(const ControlRequest&, MessageReader&)) {
            return [this, command](const ControlRequest& request, MessageReader& arguments) {
                return (this->*command)(request, arguments);
            };
        };
    const auto hasRead = [this](const ControlRequest& request, MessageReader&) {
        m_surroundings.departures.overdueWasRead(request.client);
        return Outcome::GoesOn;
    };
    return {{"active", activates(true)},
            {"back", tells(EventCode::Back)},
            {"event", calls(&BoxCommands::anyEvent)},
            {"exit", calls(&BoxCommands::exit)},
            {"fullscreen", sets(WindowState::Fullscreen)},
            {"inactive", activates(false)},
            {"invisible", sets(WindowState::Invisible)},
            {"invoke", calls(&BoxCommands::invoke)},
            {"lock", locks(true)},
            {"lowMemory", calls(&BoxCommands::lowMemory)},
            {"overdueWasRead", hasRead},
            {"rotate", calls(&BoxCommands::rotate)},
            {"swipeDown", calls(&BoxCommands::swipeDown)},
            {"swipeStart", tells(EventCode::SwipeStart)},
            {"thumbnail", sets(WindowState::Thumbnail)},
            {"unlock", locks(false)}};
}

BoxCommands::Target BoxCommands::targetIn(const MessageReader& arguments)
{
    const std::string group = optionalText(arguments, "group").value_or("");
    if (arguments.has("group") && group.empty())
        throw Failure("group must not be empty; leave it out for the application in the "
                      "foreground");
    return {group, duration(arguments, "wait", 0, defaultWait)};
}

BoxCommands::Outcome BoxCommands::whenItListens(const ControlRequest& request, const Target& target,
                                                Action action)
{
    m_surroundings.pending.hold(request, target.wait,
                                [this, request, target, action = std::move(action)] {
                                    std::string reason;
                                    WindowGroup* const application = listenerFor(target, reason);
                                    if (application == nullptr)
                                        return Trial{Trial::Result::Waits, reason};
                                    reportGroup(request, *application);
                                    action(*application);
                                    return Trial{};
                                });
    return Outcome::GoesOn;
}

WindowGroup* BoxCommands::listenerFor(const Target& target, std::string& reason)
{
    ApplicationTable& applications = m_surroundings.applications;
    WindowGroup* const application =
        target.group.empty() ? applications.foreground() : applications.find(target.group);
    if (application != nullptr && application->listening)
        return application;
    reason = reasonFor(target, application);
    return nullptr;
}

std::string BoxCommands::reasonFor(const Target& target, const WindowGroup* application)
{
    const std::string there = m_surroundings.applications.groups();
    if (application != nullptr)
        return application->group + " does not listen: it no longer has " +
               "/pps/services/navigator/events open";
    if (there.empty())
        return "no application listens to the navigator; one does when it opens "
               "/pps/services/navigator/events, as navigator_request_events() does";
    if (!target.group.empty())
        return "there is no application " + quoted(target.group) + "; there are: " + there;
    return "no application is in the foreground; there are: " + there + "; name one with --group";
}

BoxCommands::Outcome BoxCommands::tellEach(const ControlRequest& request, MessageReader& arguments,
                                           EventCode code)
{
    return whenItListens(request, targetIn(arguments), [this, code](WindowGroup& application) {
        tellOrFail(application, NavigatorEvent(code));
    });
}

BoxCommands::Outcome BoxCommands::setState(const ControlRequest& request, MessageReader& arguments,
                                           WindowState state)
{
    return whenItListens(request, targetIn(arguments), [this, state](WindowGroup& application) {
        tellOrFail(application, windowStateEvent(application, state), [&] {
            application.state = state;
            if (state == WindowState::Fullscreen)
                tellOthers(m_surroundings.applications.bringToForeground(application));
        });
    });
}

BoxCommands::Outcome BoxCommands::setActive(const ControlRequest& request, MessageReader& arguments,
                                            bool active)
{
    return whenItListens(request, targetIn(arguments), [this, active](WindowGroup& application) {
        tellOrFail(application, windowActiveEvent(application, active),
                   [&] { application.active = active; });
    });
}

BoxCommands::Outcome BoxCommands::swipeDown(const ControlRequest& request, MessageReader& arguments)
{
    return whenItListens(request, targetIn(arguments), [this](WindowGroup& application) {
        if (application.wantsSwipeStart)
            tellOrFail(application, NavigatorEvent(EventCode::SwipeStart));
        tellOrFail(application, NavigatorEvent(EventCode::SwipeDown));
    });
}

BoxCommands::Outcome BoxCommands::lowMemory(const ControlRequest& request, MessageReader& arguments)
{
    const Target target = targetIn(arguments);
    if (!target.group.empty())
        return tellEach(request, arguments, EventCode::LowMemory);
    m_surroundings.pending.hold(request, target.wait, [this, request, target] {
        std::string trouble;
        bool isTold = false;
        for (const WindowGroup& application : m_surroundings.applications.all()) {
            if (!application.listening)
                continue;
            isTold = true;
            if (tell(application, NavigatorEvent(EventCode::LowMemory), trouble))
                reportGroup(request, application);
        }
        if (!trouble.empty())
            throw Failure(trouble);
        const WindowGroup* const foreground = m_surroundings.applications.foreground();
        return isTold ? Trial{} : Trial{Trial::Result::Waits, reasonFor(target, foreground)};
    });
    return Outcome::GoesOn;
}

// The screen is the phone's, so that nobody is waited for.
BoxCommands::Outcome BoxCommands::setLocked(const ControlRequest& request, bool locked)
{
    m_surroundings.pending.hold(request, std::chrono::milliseconds(0), [this, request, locked] {
        m_surroundings.applications.locked = locked;
        const NavigatorEvent event(locked ? EventCode::WindowLock : EventCode::WindowUnlock);
        std::string trouble;
        for (const WindowGroup& application : m_surroundings.applications.all())
            if (application.listening && tell(application, event, trouble))
                reportGroup(request, application);
        if (!trouble.empty())
            throw Failure(trouble);
        return Trial{};
    });
    return Outcome::GoesOn;
}

BoxCommands::Outcome BoxCommands::invoke(const ControlRequest& request, MessageReader& arguments)
{
    NavigatorEvent event(EventCode::Invoke);
    event.data = requiredText(arguments, "url");
    return whenItListens(request, targetIn(arguments), [this, event](WindowGroup& application) {
        tellOrFail(application, event);
    });
}

BoxCommands::Outcome BoxCommands::exit(const ControlRequest& request, MessageReader& arguments)
{
    const std::chrono::milliseconds grace = duration(arguments, "grace", 0, defaultGrace);
    const Target target = targetIn(arguments);
    m_surroundings.pending.hold(request, target.wait, [this, request, target, grace] {
        std::string reason;
        WindowGroup* const application = listenerFor(target, reason);
        if (application == nullptr)
            return Trial{Trial::Result::Waits, reason};
        reportGroup(request, *application);
        // One that does not read its events will not leave by itself; the grace time is its last.
        std::string trouble;
        if (!tell(*application, NavigatorEvent(EventCode::Exit), trouble))
            m_surroundings.complaints.add(trouble);
        m_surroundings.departures.begin(request, *application, grace);
        return Trial{Trial::Result::Begun};
    });
    return Outcome::GoesOn;
}

BoxCommands::Outcome BoxCommands::rotate(const ControlRequest& request, MessageReader& arguments)
{
    const int angle = requiredAngle(arguments);
    const std::chrono::milliseconds limit = duration(arguments, "limit", 1, defaultLimit);
    const Target target = targetIn(arguments);
    m_surroundings.pending.hold(request, target.wait, [this, request, target, angle, limit] {
        if (m_surroundings.turns.isUnderWay())
            return Trial{Trial::Result::Queues};
        WindowGroup* application = m_surroundings.applications.foreground();
        if (application != nullptr || !target.group.empty()) {
            std::string reason;
            application = listenerFor(target, reason);
            if (application == nullptr)
                return Trial{Trial::Result::Waits, reason};
            if (application != m_surroundings.applications.foreground())
                return Trial{Trial::Result::Waits, application->group +
                                                       " is not in the foreground, and only who is "
                                                       "there is asked to turn"};
        }
        m_surroundings.turns.begin(request, application, angle, limit);
        return Trial{Trial::Result::Begun};
    });
    return Outcome::GoesOn;
}

BoxCommands::Outcome BoxCommands::anyEvent(const ControlRequest& request, MessageReader& arguments)
{
    NavigatorEvent event;
    event.code = requiredInteger(arguments, "code", std::numeric_limits<int>::min(),
                                 std::numeric_limits<int>::max());
    event.state = optionalInteger(arguments, "state");
    event.angle = optionalInteger(arguments, "angle");
    event.data = optionalText(arguments, "data");
    event.id = optionalText(arguments, "id");
    event.err = optionalText(arguments, "err");
    event.group = optionalText(arguments, "windowGroup");
    return whenItListens(request, targetIn(arguments), [this, event](WindowGroup& application) {
        tellOrFail(application, event);
    });
}

void BoxCommands::tellOthers(const std::vector<AddressedEvent>& events)
{
    for (const auto& [process, event] : events) {
        const WindowGroup* const application = m_surroundings.applications.find(process);
        std::string trouble;
        if (application != nullptr && !tell(*application, event, trouble))
            m_surroundings.complaints.add(trouble);
    }
}

// Where not all of its clients could be told, `trouble` says so, beside what it says already.
bool BoxCommands::tell(const WindowGroup& application, const NavigatorEvent& event,
                       std::string& trouble)
{
    const EventPost::Outcome outcome = m_surroundings.post.tell(application.process, event);
    if (outcome.unread == 0)
        return true;
    trouble += (trouble.empty() ? "" : "; ") + application.group +
               " does not read its events, its queue is full; " + event.name() +
               (outcome.reached == 0
                    ? " was not delivered"
                    : " was delivered to " + std::to_string(outcome.reached) + " of its " +
                          std::to_string(outcome.reached + outcome.unread) + " channels");
    return outcome.reached > 0;
}

void BoxCommands::tellOrFail(const WindowGroup& application, const NavigatorEvent& event,
                             const std::function<void()>& whenTold)
{
    std::string trouble;
    if (tell(application, event, trouble) && whenTold)
        whenTold();
    if (!trouble.empty())
        throw Failure(trouble);
}

void BoxCommands::reportGroup(const ControlRequest& request, const WindowGroup& application)
{
    m_surroundings.pending.report(
        request, [&](MessageWriter& members) { members.add("group", application.group); });
}

} // namespace tamobox
