// SPDX-License-Identifier: Apache-2.0
#include "DisplayListener.h"

#include "ScreenEvent.h"

#include "core/Diagnostics.h"

#include <cerrno>
#include <memory>
#include <new>
#include <utility>
#include <vector>

namespace zel {
namespace {

void throwIfNoMemory(int error)
{
    if (error == ENOMEM)
        throw std::bad_alloc();
}

} // namespace

// What is known at first is what a context sees where nothing has been published; begin() comes
// only where something has.
DisplayListener::DisplayListener(screen_context_t context) : m_context(context)
{
    std::vector<screen::feed::DisplayState> displays;
    throwIfNoMemory(screen::feed::takeUnpublished(context, displays));
    for (const auto& display : displays)
        m_known.emplace(display.id, display);
}

void DisplayListener::begin(ObjectMessage message, EventSink&)
{
    // Of what could not be read nothing is known; what can be read later is attached then.
    m_known.clear();
    read(message, m_known);
}

bool DisplayListener::receive(ObjectMessage message, EventSink& events)
{
    States states;
    if (const int error = read(message, states))
        return error != EINVAL; // which says that the context has gone
    const auto reading = std::make_shared<char>();
    m_reading = reading;
    for (const auto& [id, display] : states) {
        const auto before = m_known.find(id);
        const bool wasAttached = before != m_known.end() && before->second.isAttached;
        const bool isTurned =
            before != m_known.end() && before->second.rotation != display.rotation;
        if (display.isAttached != wasAttached || isTurned)
            push(events, id, display.isAttached, reading);
    }
    for (const auto& [id, display] : m_known)
        if (display.isAttached && states.count(id) == 0)
            push(events, id, false, reading);
    m_known = std::move(states);
    return true;
}

int DisplayListener::read(ObjectMessage message, States& states) const
{
    std::vector<screen::feed::DisplayState> displays;
    const int error = screen::feed::takeReading(m_context, message.text, displays);
    throwIfNoMemory(error);
    if (error == EBADMSG)
        say(Level::Unreadable, "services/screen/displays: `displays` is not an array");
    for (const auto& display : displays)
        states.emplace(display.id, display);
    return error;
}

void DisplayListener::push(EventSink& events, int id, bool isAttached,
                           std::shared_ptr<const void> reading) const
{
    auto event = std::make_unique<ScreenEvent>(std::move(reading));
    const int error = event->make(m_context, id, isAttached);
    throwIfNoMemory(error);
    if (!error) // otherwise the context has just gone
        events.push(std::move(event));
}

} // namespace zel
