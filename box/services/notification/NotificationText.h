// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_NOTIFICATIONTEXT_H
#define TAMOBOX_NOTIFICATIONTEXT_H

#include "Notification.h"

#include "pps/MessageReader.h"
#include "pps/MessageWriter.h"

namespace tamobox {

/** The object in which the service keeps the notifications, below `/pps`. */
inline constexpr const char* notificationsObject = "box/notifications";

/** Adds the attribute that describes a notification. */
void writeNotification(MessageWriter& message, const Notification& notification);

/** Reads the attributes that writeNotification() wrote, in their order. What lacks a client, an id
 * or a text is left out. */
std::vector<Notification> readNotifications(const std::string& text);

/** Reads milliseconds since the epoch, written as a decimal number; nothing where the text is
 * anything else. */
std::optional<std::int64_t> parseMilliseconds(const std::string& text);

} // namespace tamobox

#endif
