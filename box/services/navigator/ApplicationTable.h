// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_APPLICATIONTABLE_H
#define TAMOBOX_APPLICATIONTABLE_H

#include "NavigatorEvent.h"
#include "WindowGroup.h"

#include <list>
#include <string>
#include <vector>

namespace tamobox {

/** An event and the process that is to be told it. */
struct AddressedEvent
{
    pid_t process;
    NavigatorEvent event;
};

/**
 * The applications, in the order in which they came, and which of them is in the foreground.
 * Pointers and references to an application are good until it is removed.
 */
class ApplicationTable
{
public:
    const std::list<WindowGroup>& all() const { return m_applications; }
    WindowGroup* find(pid_t process);
    WindowGroup* find(const std::string& group);

    /** Null where there is none. */
    WindowGroup* foreground() { return find(m_foreground); }
    const std::string& foregroundGroup() const { return m_foreground; }

    /**
     * Adds an application that has come: it is full screen, active and in the foreground.
     *
     * @param angle the display's, in degrees
     * @return what the others are told
     */
    std::vector<AddressedEvent> arrive(pid_t process, const std::string& name, int angle);

    /** Adds an application as it was before. */
    void restore(const WindowGroup& application) { m_applications.push_back(application); }

    /** Puts an application back into the foreground; nobody is told. None where there is none. */
    void restoreForeground(const std::string& group);

    /**
     * Makes an application full screen and brings it to the foreground.
     *
     * @return what its state asks for beside the window state itself: who was in the foreground is
     * inactive and invisible, and it is active if it was not
     */
    std::vector<AddressedEvent> bringToForeground(WindowGroup& application);

    /** Removes the application of a process that has ended. */
    void remove(pid_t process);

    /** The ids of all, with commas between. */
    std::string groups() const;

    bool locked = false; ///< the screen is

private:
    std::list<WindowGroup> m_applications;
    std::string m_foreground;
};

/** The events that carry a window group. */
NavigatorEvent windowStateEvent(const WindowGroup& application, WindowState state);
NavigatorEvent windowActiveEvent(const WindowGroup& application, bool active);

} // namespace tamobox

#endif
