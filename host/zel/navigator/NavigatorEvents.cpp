// SPDX-License-Identifier: Apache-2.0
#include "NavigatorEvent.h"
#include "NavigatorMessage.h"

#include "common/Call.h"
#include "core/Diagnostics.h"
#include "core/ObjectWatch.h"

#include <zel/navigator.h>

using zel::NavigatorEvent;

namespace {

constexpr char EventsPath[] = "/pps/services/navigator/events";

/** Makes events of what the navigator says. */
class NavigatorListener final : public zel::ObjectListener
{
public:
    void begin(zel::ObjectMessage message, zel::EventSink& events) override
    {
        receive(message, events);
    }

    bool receive(zel::ObjectMessage message, zel::EventSink& events) override
    {
        std::string fault;
        if (auto event = zel::readNavigatorMessage(message, fault))
            events.push(std::move(event));
        else
            zel::say(zel::Level::Unreadable, "a message of the navigator is left out: %s",
                     fault.c_str());
        return true;
    }
};

const NavigatorEvent* navigatorEvent(const zel_event_t* event)
{
    return dynamic_cast<const NavigatorEvent*>(event);
}

int partOf(const zel_event_t* event, std::optional<int> NavigatorEvent::*part)
{
    const NavigatorEvent* const navigators = navigatorEvent(event);
    if (navigators && navigators->*part)
        return *(navigators->*part);
    errno = EINVAL;
    return -1;
}

const char* partOf(const zel_event_t* event, std::optional<std::string> NavigatorEvent::*part)
{
    const NavigatorEvent* const navigators = navigatorEvent(event);
    if (navigators && navigators->*part)
        return (navigators->*part)->c_str();
    errno = EINVAL;
    return nullptr;
}

} // namespace

int navigator_request_events(int flags)
{
    return host::call([&] {
        if (flags != 0)
            return EINVAL;
        return zel::watchObject(zel::Domain::Navigator, 0, EventsPath,
                                [] { return std::make_unique<NavigatorListener>(); });
    });
}

int navigator_get_domain(void)
{
    return number(zel::Domain::Navigator);
}

int navigator_event_get_window_state(const zel_event_t* event)
{
    return partOf(event, &NavigatorEvent::windowState);
}

const char* navigator_event_get_groupid(const zel_event_t* event)
{
    return partOf(event, &NavigatorEvent::groupId);
}

int navigator_event_get_orientation_angle(const zel_event_t* event)
{
    return partOf(event, &NavigatorEvent::angle);
}

const char* navigator_event_get_data(const zel_event_t* event)
{
    return partOf(event, &NavigatorEvent::data);
}

const char* navigator_event_get_id(const zel_event_t* event)
{
    return partOf(event, &NavigatorEvent::id);
}

const char* navigator_event_get_err(const zel_event_t* event)
{
    return partOf(event, &NavigatorEvent::error);
}
