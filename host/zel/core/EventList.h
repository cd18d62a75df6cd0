// SPDX-License-Identifier: Apache-2.0
#ifndef ZEL_CORE_EVENTLIST_H
#define ZEL_CORE_EVENTLIST_H

#include "Event.h"

#include <utility>

namespace zel {

/** A queue of events, linked through the events themselves: nothing is allocated. */
class EventList
{
public:
    EventList() = default;
    ~EventList() { clear(); }
    EventList(const EventList&) = delete;
    EventList& operator=(const EventList&) = delete;

    bool isEmpty() const { return !m_first; }

    /** Adds an event at the end, and owns it. */
    void append(zel_event* event)
    {
        event->m_next = nullptr;
        (m_first ? m_last->m_next : m_first) = event;
        m_last = event;
    }

    /** Adds all events of another list at the end; that one is empty afterwards. */
    void append(EventList& other)
    {
        if (other.isEmpty())
            return;
        (m_first ? m_last->m_next : m_first) = other.m_first;
        m_last = std::exchange(other.m_last, nullptr);
        other.m_first = nullptr;
    }

    /** The first event, or none. */
    EventPointer take()
    {
        zel_event* const event = m_first;
        if (event)
            m_first = event->m_next;
        return EventPointer(event);
    }

    /** Completes all events, one by one, out of the list first. */
    void clear()
    {
        while (!isEmpty())
            take();
    }

    /** Frees all events without completing them: those of a parent process, after fork(). */
    void discard()
    {
        while (!isEmpty())
            delete take().release();
    }

private:
    zel_event* m_first = nullptr;
    zel_event* m_last = nullptr;
};

} // namespace zel

#endif
