// SPDX-License-Identifier: Apache-2.0
#include "SubstituteScreenApi.h"

#include <utility>

namespace tamotest {

SubstituteScreenApi::SubstituteScreenApi(CallJournal& journal) : m_journal(journal) {}

void SubstituteScreenApi::setDisplays(std::vector<Display> displays)
{
    const std::lock_guard lock(m_mutex);
    m_displays = std::move(displays);
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
    *values = static_cast<int>(m_displays.size());
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
    const auto handle = reinterpret_cast<std::uintptr_t>(display);
    if (handle < FirstDisplay || handle - FirstDisplay >= m_displays.size())
        return refuse(EINVAL);
    const Display& found = m_displays[handle - FirstDisplay];
    if (name == SCREEN_PROPERTY_ROTATION) {
        *values = found.rotation;
        return 0;
    }
    if (name == SCREEN_PROPERTY_SIZE) {
        values[0] = found.width;
        values[1] = found.height;
        return 0;
    }
    return refuse(EINVAL);
}

int SubstituteScreenApi::getDisplayPropertyCv(screen_display_t, int name, int, char*)
{
    m_journal.enter("screenApi.getDisplayPropertyCv", name);
    return refuse(EINVAL);
}

int SubstituteScreenApi::getEventPropertyCv(screen_event_t, int name, int, char*)
{
    m_journal.enter("screenApi.getEventPropertyCv", name);
    return refuse(EINVAL);
}

int SubstituteScreenApi::getEventPropertyIv(screen_event_t, int name, int*)
{
    m_journal.enter("screenApi.getEventPropertyIv", name);
    return refuse(EINVAL);
}

int SubstituteScreenApi::getEventPropertyLlv(screen_event_t, int name, long long*)
{
    m_journal.enter("screenApi.getEventPropertyLlv", name);
    return refuse(EINVAL);
}

int SubstituteScreenApi::getEventPropertyPv(screen_event_t, int name, void**)
{
    m_journal.enter("screenApi.getEventPropertyPv", name);
    return refuse(EINVAL);
}

} // namespace tamotest
