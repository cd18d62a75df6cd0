// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_NOTIFICATIONEXCEPTION_H
#define TAMO_PLATFORM_NOTIFICATIONEXCEPTION_H

#include <tamo/Exception.h>
#include <tamo/export.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace tamo {
namespace platform {

/**
 * Thrown where the notification system fails, with a message that says how. Notification says when.
 *
 * @since 0.1
 */
class TAMO_EXPORT NotificationException : public Exception
{
public:
    /** @param message in Latin-1 characters; any other becomes a question mark */
    explicit NotificationException(const QString& message);
    NotificationException(const NotificationException&) noexcept = default;
    NotificationException& operator=(const NotificationException&) noexcept = default;
    ~NotificationException() override;

    /** The message in Latin-1. The text stays for as long as this exception or a copy of it does.
     */
    const char* what() const noexcept override;

private:
    QByteArray m_message;
};

} // namespace platform
} // namespace tamo

#endif
