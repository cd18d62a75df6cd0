// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_NOTIFYREQUEST_H
#define TAMOBOX_NOTIFYREQUEST_H

#include "Notification.h"

#include "pps/MessageReader.h"

namespace tamobox {

/**
 * Reads what an application posts, from the container in which the reader stands.
 *
 * @return the notification, without a number and a client
 * @throws Failure where something is missing, of another type, too long or out of its range
 */
Notification readNotify(MessageReader& dat);

/** The id in a request. Throws Failure. */
std::string readNotificationId(const MessageReader& dat);

} // namespace tamobox

#endif
