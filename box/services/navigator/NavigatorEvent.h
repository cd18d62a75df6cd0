// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_NAVIGATOREVENT_H
#define TAMOBOX_NAVIGATOREVENT_H

#include "pps/MessageWriter.h"

#include <optional>
#include <string>

namespace tamobox {

/** The codes of the navigator's events, as in <zel/navigator.h>. */
enum class EventCode {
    Invoke = 1,
    Exit = 2,
    WindowState = 3,
    SwipeDown = 4,
    SwipeStart = 5,
    LowMemory = 6,
    OrientationCheck = 7,
    Orientation = 8,
    Back = 9,
    WindowActive = 10,
    WindowInactive = 11,
    OrientationEnd = 12,
    OrientationResult = 13,
    WindowLock = 14,
    WindowUnlock = 15
};

/** An event as an application is told it; what is not set is left out. */
struct NavigatorEvent
{
    int code = 0; ///< an EventCode, or any other number
    std::optional<int> state = {};
    std::optional<int> angle = {}; ///< degrees
    std::optional<std::string> data = {};
    std::optional<std::string> id = {};
    std::optional<std::string> err = {};
    std::optional<std::string> group = {};

    NavigatorEvent() = default;
    explicit NavigatorEvent(EventCode event) : code(static_cast<int>(event)) {}

    /** The event's name in `msg`; `event` for a code that has none. */
    std::string name() const;

    /** Adds the event's attributes to a message. Throws Failure for what PPS text cannot carry. */
    void writeTo(MessageWriter& message) const;
};

} // namespace tamobox

#endif
