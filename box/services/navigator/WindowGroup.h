// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_WINDOWGROUP_H
#define TAMOBOX_WINDOWGROUP_H

#include <sys/types.h>

#include <optional>
#include <string>
#include <vector>

namespace tamobox {

/** What a window is like; the numbers are those of the event. */
enum class WindowState { Fullscreen = 0, Thumbnail = 1, Invisible = 2 };

/** A question that is put to the user before the application is closed. */
struct ClosePrompt
{
    std::string title;
    std::string message;
};

/** A URL that is an icon among the applications. */
struct UriIcon
{
    std::string icon;
    std::string label;
    std::string category;
    std::string url;
};

/** An application with its one window group, as the navigator knows it. */
struct WindowGroup
{
    std::string group; ///< its id
    pid_t process = 0;
    std::string name;       ///< the process's; empty: unknown
    bool listening = false; ///< it has asked for events
    WindowState state = WindowState::Fullscreen;
    bool active = true;
    int angle = 0;                     ///< at which it draws, in degrees
    std::optional<int> turningTo = {}; ///< the angle that it has been told and not yet done
    bool rotationLocked = false;
    bool wantsSwipeStart = false;
    std::optional<int> badge = {};
    std::optional<ClosePrompt> closePrompt = {};
    std::vector<UriIcon> uris = {};
};

} // namespace tamobox

#endif
