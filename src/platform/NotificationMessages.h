// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_NOTIFICATIONMESSAGES_H
#define TAMO_PLATFORM_NOTIFICATIONMESSAGES_H

#include <QtCore/QString>

namespace tamo {
namespace platform {

/** What NotificationExceptions say. */
struct NotificationMessages
{
    const QString systemIsMalfunctioning = QStringLiteral("Notification system is malfunctioning");
    const QString unknownResponse = QStringLiteral("Unknown response received");
    /** Not thrown yet: what is missing in a response is read as empty. */
    const QString malformedResponse = QStringLiteral("Malformed response received");
};

/** The texts, made once and never destroyed. */
const NotificationMessages& notificationMessages();

} // namespace platform
} // namespace tamo

#endif
