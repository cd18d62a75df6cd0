// SPDX-License-Identifier: Apache-2.0
#include <zel/screen.h>

#include "DisplayListener.h"
#include "ScreenEvent.h"

#include "common/Call.h"
#include "core/Channel.h"
#include "core/ObjectWatch.h"
#include "core/ThreadState.h"

#include <cerrno>
#include <cstdint>
#include <memory>
#include <vector>

using namespace zel;

namespace {

constexpr char DisplaysPath[] = "/pps/services/screen/displays";

screen_context_t contextOf(std::uintptr_t argument)
{
    return reinterpret_cast<screen_context_t>(argument);
}

// A watch notices the end of its context when the displays change; a channel that sees many
// contexts come and go must not collect their watches until then.
void endThoseWithoutContext()
{
    std::shared_ptr<Channel> channel;
    if (!ThreadState::current() || ThreadState::current()->activeChannel(channel))
        return;
    std::vector<std::uintptr_t> ended;
    for (const auto& [key, watch] : channel->objects())
        if (key.first == Domain::Screen && !screen::feed::isContext(contextOf(key.second)))
            ended.push_back(key.second);
    for (const std::uintptr_t argument : ended)
        unwatchObject(Domain::Screen, argument);
}

} // namespace

int screen_request_events(int context)
{
    return host::call([=] {
        const auto argument = static_cast<std::uintptr_t>(context);
        if (context <= 0 || !screen::feed::isContext(contextOf(argument)))
            return EINVAL;
        endThoseWithoutContext();
        return watchObject(Domain::Screen, argument, DisplaysPath, [argument] {
            return std::make_unique<DisplayListener>(contextOf(argument));
        });
    });
}

int screen_get_domain(void)
{
    return number(Domain::Screen);
}

int screen_stop_events(int context)
{
    return host::call(
        [=] { return unwatchObject(Domain::Screen, static_cast<std::uintptr_t>(context)); });
}

screen_event_t screen_event_get_event(const zel_event_t* event)
{
    const auto* const screenEvent = dynamic_cast<const ScreenEvent*>(event);
    if (!screenEvent)
        errno = EINVAL;
    return screenEvent ? screenEvent->event() : nullptr;
}
