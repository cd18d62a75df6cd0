// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_NOTIFICATIONTABLE_H
#define TAMOBOX_NOTIFICATIONTABLE_H

#include "services/notification/Notification.h"

#include <string>
#include <vector>

namespace tamobox {

/** The notifications, in the box that this process is in. Throws ObjectFailure. */
std::vector<Notification> publishedNotifications();

/** All of them for people, a line for each, under a line of headings. */
std::string notificationTable(const std::vector<Notification>& notifications);

/** All of them for programs: an array of objects, see docs/box.md. */
std::string notificationsToJson(const std::vector<Notification>& notifications);

} // namespace tamobox

#endif
