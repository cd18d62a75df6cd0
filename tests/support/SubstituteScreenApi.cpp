// SPDX-License-Identifier: Apache-2.0
#include "SubstituteScreenApi.h"

#include <algorithm>
#include <map>
#include <utility>

namespace tamotest {

SubstituteScreenApi::SubstituteScreenApi(CallJournal& journal) : m_journal(journal) {}

void SubstituteScreenApi::setDisplays(std::vector<Display> displays)
{
    const std::lock_guard lock(m_mutex);
    m_displays = std::move(displays);
}

void SubstituteScreenApi::setAttached(std::size_t place, int attached)
{
    const std::lock_guard lock(m_mutex);
    m_displays.at(place).attached = attached;
}

void SubstituteScreenApi::setCount(std::optional<int> count)
{
    const std::lock_guard lock(m_mutex);
    m_count = count;
}

screen_event_t SubstituteScreenApi::makeEvent(const Event& event)
{
    const std::lock_guard lock(m_mutex);
    m_events.push_back(event);
    return reinterpret_cast<screen_event_t>(m_events.size());
}

int SubstituteScreenApi::contextCount() const
{
    const std::lock_guard lock(m_mutex);
    return static_cast<int>(m_contexts.size());
}

bool SubstituteScreenApi::isContext(screen_context_t context) const
{
    return m_contexts.count(reinterpret_cast<std::uintptr_t>(context)) != 0;
}

const SubstituteScreenApi::Display* SubstituteScreenApi::find(screen_display_t display) const
{
    const std::size_t place = reinterpret_cast<std::uintptr_t>(display) - FirstDisplay;
    return place < m_displays.size() ? &m_displays[place] : nullptr;
}

const SubstituteScreenApi::Event* SubstituteScreenApi::find(screen_event_t event) const
{
    const std::size_t place = reinterpret_cast<std::uintptr_t>(event) - 1;
    return place < m_events.size() ? &m_events[place] : nullptr;
}

int SubstituteScreenApi::refuse(int error)
{
    errno = error;
    return -1;
}

int SubstituteScreenApi::createContext(screen_context_t* context, int flags)
{
    if (!m_journal.enter("screenApi.createContext", flags))
        return -1;
    const std::lock_guard lock(m_mutex);
    m_contexts.insert(++m_lastContext);
    *context = reinterpret_cast<screen_context_t>(m_lastContext);
    return 0;
}

int SubstituteScreenApi::destroyContext(screen_context_t context)
{
    if (!m_journal.enter("screenApi.destroyContext"))
        return -1;
    const std::lock_guard lock(m_mutex);
    return m_contexts.erase(reinterpret_cast<std::uintptr_t>(context)) == 1 ? 0 : refuse(EINVAL);
}

int SubstituteScreenApi::getContextPropertyIv(screen_context_t context, int name, int* values)
{
    if (!m_journal.enter("screenApi.getContextPropertyIv", name))
        return -1;
    const std::lock_guard lock(m_mutex);
    if (!isContext(context) || name != SCREEN_PROPERTY_DISPLAY_COUNT)
        return refuse(EINVAL);
    *values = m_count.value_or(static_cast<int>(m_displays.size()));
    return 0;
}

int SubstituteScreenApi::getContextPropertyPv(screen_context_t context, int name, void** values)
{
    if (!m_journal.enter("screenApi.getContextPropertyPv", name))
        return -1;
    const std::lock_guard lock(m_mutex);
    if (!isContext(context) || name != SCREEN_PROPERTY_DISPLAYS)
        return refuse(EINVAL);
    for (std::size_t i = 0; i < m_displays.size(); ++i)
        values[i] = reinterpret_cast<void*>(FirstDisplay + i);
    return 0;
}

int SubstituteScreenApi::getDisplayPropertyIv(screen_display_t display, int name, int* values)
{
    if (!m_journal.enter("screenApi.getDisplayPropertyIv", name))
        return -1;
    const std::lock_guard lock(m_mutex);
    const Display* const found = find(display);
    if (!found)
        return refuse(EINVAL);
    if (name == SCREEN_PROPERTY_SIZE) {
        values[0] = found->width;
        values[1] = found->height;
        return 0;
    }
    if (name == SCREEN_PROPERTY_PHYSICAL_SIZE) {
        values[0] = found->physicalWidth;
        values[1] = found->physicalHeight;
        return 0;
    }
    static const std::map<int, int Display::*> numbers = {
        {SCREEN_PROPERTY_ID, &Display::id},
        {SCREEN_PROPERTY_TYPE, &Display::type},
        {SCREEN_PROPERTY_ATTACHED, &Display::attached},
        {SCREEN_PROPERTY_DETACHABLE, &Display::detachable},
        {SCREEN_PROPERTY_ROTATION, &Display::rotation},
    };
    const auto number = numbers.find(name);
    if (number == numbers.end())
        return refuse(EINVAL);
    *values = found->*number->second;
    return 0;
}

int SubstituteScreenApi::getDisplayPropertyCv(screen_display_t display, int name, int length,
                                              char* value)
{
    if (!m_journal.enter("screenApi.getDisplayPropertyCv", name, length))
        return -1;
    const std::lock_guard lock(m_mutex);
    const Display* const found = find(display);
    if (!found || name != SCREEN_PROPERTY_ID_STRING)
        return refuse(EINVAL);
    const auto room = static_cast<std::size_t>(length);
    const std::size_t size = std::min(room, found->name.size());
    std::copy_n(found->name.begin(), size, value);
    if (size < room)
        value[size] = '\0';
    return 0;
}

int SubstituteScreenApi::getEventPropertyCv(screen_event_t, int name, int, char*)
{
    m_journal.enter("screenApi.getEventPropertyCv", name);
    return refuse(EINVAL);
}

int SubstituteScreenApi::getEventPropertyIv(screen_event_t event, int name, int* values)
{
    if (!m_journal.enter("screenApi.getEventPropertyIv", name))
        return -1;
    const std::lock_guard lock(m_mutex);
    const Event* const found = find(event);
    if (!found || (name != SCREEN_PROPERTY_TYPE && name != SCREEN_PROPERTY_ATTACHED))
        return refuse(EINVAL);
    *values = name == SCREEN_PROPERTY_TYPE ? found->type : found->attached;
    return 0;
}

int SubstituteScreenApi::getEventPropertyLlv(screen_event_t, int name, long long*)
{
    m_journal.enter("screenApi.getEventPropertyLlv", name);
    return refuse(EINVAL);
}

int SubstituteScreenApi::getEventPropertyPv(screen_event_t event, int name, void** values)
{
    if (!m_journal.enter("screenApi.getEventPropertyPv", name))
        return -1;
    const std::lock_guard lock(m_mutex);
    const Event* const found = find(event);
    if (!found || name != SCREEN_PROPERTY_DISPLAY)
        return refuse(EINVAL);
    *values = reinterpret_cast<void*>(FirstDisplay + found->display);
    return 0;
}

} // namespace tamotest
