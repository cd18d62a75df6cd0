// SPDX-License-Identifier: Apache-2.0
#include "ApplicationTable.h"

#include <algorithm>

namespace tamobox {

WindowGroup* ApplicationTable::find(pid_t process)
{
    const auto found =
        std::find_if(m_applications.begin(), m_applications.end(),
                     [&](const WindowGroup& known) { return known.process == process; });
    return found == m_applications.end() ? nullptr : &*found;
}

WindowGroup* ApplicationTable::find(const std::string& group)
{
    const auto found = std::find_if(m_applications.begin(), m_applications.end(),
                                    [&](const WindowGroup& known) { return known.group == group; });
    return found == m_applications.end() ? nullptr : &*found;
}

std::vector<AddressedEvent> ApplicationTable::arrive(pid_t process, const std::string& name,
                                                     int angle)
{
    WindowGroup application;
    application.group = "app-" + std::to_string(process);
    application.process = process;
    application.name = name;
    application.angle = angle;
    m_applications.push_back(application);
    return bringToForeground(m_applications.back());
}

void ApplicationTable::restoreForeground(const std::string& group)
{
    if (find(group) != nullptr)
        m_foreground = group;
}

std::vector<AddressedEvent> ApplicationTable::bringToForeground(WindowGroup& application)
{
    std::vector<AddressedEvent> told;
    WindowGroup* const before = foreground();
    if (before != nullptr && before != &application) {
        told.push_back({before->process, windowActiveEvent(*before, false)});
        told.push_back({before->process, windowStateEvent(*before, WindowState::Invisible)});
        before->active = false;
        before->state = WindowState::Invisible;
    }
    m_foreground = application.group;
    application.state = WindowState::Fullscreen;
    if (!application.active)
        told.push_back({application.process, windowActiveEvent(application, true)});
    application.active = true;
    return told;
}

void ApplicationTable::remove(pid_t process)
{
    m_applications.remove_if([&](const WindowGroup& known) { return known.process == process; });
    if (foreground() == nullptr)
        m_foreground.clear();
}

std::string ApplicationTable::groups() const
{
    std::string text;
    for (const WindowGroup& application : m_applications)
        text += (text.empty() ? "" : ", ") + application.group;
    return text;
}

NavigatorEvent windowStateEvent(const WindowGroup& application, WindowState state)
{
    NavigatorEvent event(EventCode::WindowState);
    event.state = static_cast<int>(state);
    event.group = application.group;
    return event;
}

NavigatorEvent windowActiveEvent(const WindowGroup& application, bool active)
{
    NavigatorEvent event(active ? EventCode::WindowActive : EventCode::WindowInactive);
    event.group = application.group;
    return event;
}

} // namespace tamobox
