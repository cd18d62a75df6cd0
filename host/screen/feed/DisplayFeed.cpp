// SPDX-License-Identifier: Apache-2.0
#include "DisplayFeed.h"

#include "ContextTable.h"
#include "DisplayReader.h"
#include "EventTable.h"
#include "Handle.h"

#include <cerrno>
#include <new>
#include <utility>

namespace screen::feed {
namespace {

std::vector<DisplayState> statesOf(const std::vector<Display>& displays)
{
    std::vector<DisplayState> states;
    for (const Display& display : displays)
        states.push_back({display.id, display.isAttached, display.rotation});
    return states;
}

} // namespace

bool isContext(screen_context_t context)
{
    return ContextTable::instance().find(context) != nullptr;
}

int takeUnpublished(screen_context_t context, std::vector<DisplayState>& states)
try {
    const auto found = ContextTable::instance().find(context);
    if (!found)
        return EINVAL;
    std::vector<Display> displays = builtInDisplays();
    std::vector<DisplayState> newStates = statesOf(displays);
    found->addUnknown(std::move(displays));
    states = std::move(newStates);
    return 0;
} catch (const std::bad_alloc&) {
    return ENOMEM;
}

int takeReading(screen_context_t context, char* text, std::vector<DisplayState>& states)
try {
    const auto found = ContextTable::instance().find(context);
    if (!found)
        return EINVAL;
    std::vector<Display> displays;
    if (const int error = readDisplays(text, displays))
        return error;
    std::vector<DisplayState> newStates = statesOf(displays);
    found->take(std::move(displays));
    states = std::move(newStates);
    return 0;
} catch (const std::bad_alloc&) {
    return ENOMEM;
}

int makeDisplayEvent(screen_context_t context, int id, bool isAttached, screen_event_t& event)
try {
    const auto found = ContextTable::instance().find(context);
    const auto place = found ? found->place(id) : std::nullopt;
    if (!place)
        return EINVAL;
    event = EventTable::instance().add({displayHandle(found->number(), *place), id, isAttached});
    return 0;
} catch (const std::bad_alloc&) {
    return ENOMEM;
}

void freeEvent(screen_event_t event)
{
    EventTable::instance().remove(event);
}

} // namespace screen::feed
