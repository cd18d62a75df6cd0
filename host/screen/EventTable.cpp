// SPDX-License-Identifier: Apache-2.0
#include "EventTable.h"

namespace screen {

EventTable& EventTable::instance()
{
    static EventTable& table = *new EventTable;
    return table;
}

screen_event_t EventTable::add(const DisplayEvent& event)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_events.emplace(m_lastNumber + 1, event);
    return reinterpret_cast<screen_event_t>(++m_lastNumber);
}

void EventTable::remove(screen_event_t handle)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_events.erase(reinterpret_cast<std::uintptr_t>(handle));
}

std::optional<DisplayEvent> EventTable::find(screen_event_t handle) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto found = m_events.find(reinterpret_cast<std::uintptr_t>(handle));
    if (found == m_events.end())
        return std::nullopt;
    return found->second;
}

} // namespace screen
