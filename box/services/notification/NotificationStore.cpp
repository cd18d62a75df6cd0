// SPDX-License-Identifier: Apache-2.0
#include "NotificationStore.h"

#include "NotificationText.h"

#include <cerrno>

namespace tamobox {

NotificationStore::NotificationStore() : m_publisher(notificationsObject) {}

std::optional<std::vector<Notification>> NotificationStore::read() const
{
    const std::optional<std::string> text = m_publisher.published();
    if (!text)
        return std::nullopt;
    return readNotifications(*text);
}

bool NotificationStore::save(const Notification& notification)
{
    try {
        m_publisher.publish(
            [&](MessageWriter& message) { writeNotification(message, notification); });
        return true;
    } catch (const ObjectFailure& failure) {
        if (failure.error() != EFBIG)
            throw;
        return false;
    }
}

void NotificationStore::erase(int number)
{
    m_publisher.publish(
        [number](MessageWriter& message) { message.remove(std::to_string(number).c_str()); });
}

} // namespace tamobox
