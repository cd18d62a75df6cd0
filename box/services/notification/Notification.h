// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_NOTIFICATION_H
#define TAMOBOX_NOTIFICATION_H

#include "services/led/LedColor.h"

#include <sys/types.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tamobox {

/** An answer that a notification offers. */
struct NotificationChoice
{
    std::string id;
    std::string label;
    std::optional<std::string> context;
};

/** A notification as an application has posted it. A client and an id of its choice are its key. */
struct Notification
{
    int number = 0;          ///< the service's own, never used again
    int client = 0;          ///< the mailbox's number for the application's descriptor
    pid_t process = 0;       ///< 0: outside the box
    std::string application; ///< the process's name; empty where it is unknown
    bool isGone = false;     ///< the application's descriptor is closed; nobody hears answers
    bool isOpened = false;   ///< since it was posted

    std::string id;
    std::string text;
    bool isHtml = false;
    LedColor ledColor = LedColor::None;
    std::optional<std::string> context;
    bool notifyOnInvoke = true;                 ///< whether the application is told of its opening
    std::optional<std::int64_t> time;           ///< milliseconds since the epoch
    std::optional<std::int64_t> expirationTime; ///< likewise; none: never
    std::optional<std::string> sound;
    std::optional<std::string> icon;
    std::vector<NotificationChoice> choices;
};

} // namespace tamobox

#endif
