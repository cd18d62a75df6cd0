// SPDX-License-Identifier: Apache-2.0
#ifndef SCREEN_EVENTTABLE_H
#define SCREEN_EVENTTABLE_H

#include <screen/screen.h>

#include <cstdint>
#include <mutex>
#include <optional>
#include <unordered_map>

namespace screen {

/** What an event says: a display was attached, detached, or turned. */
struct DisplayEvent
{
    screen_display_t display = nullptr;
    int id = 0;
    bool isAttached = false;
};

/** The events of the process. Any thread. */
class EventTable
{
public:
    /** The process' one; never destroyed, since a process may exit while threads use it. */
    static EventTable& instance();

    /** Keeps an event under a handle of its own. */
    screen_event_t add(const DisplayEvent& event);

    void remove(screen_event_t handle);

    /** The event of a handle; none where it is no event's, or no longer. */
    std::optional<DisplayEvent> find(screen_event_t handle) const;

private:
    mutable std::mutex m_mutex; // nothing is called while it is held
    std::uintptr_t m_lastNumber = 0;
    std::unordered_map<std::uintptr_t, DisplayEvent> m_events;
};

} // namespace screen

#endif
