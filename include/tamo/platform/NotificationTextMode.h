// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_NOTIFICATIONTEXTMODE_H
#define TAMO_PLATFORM_NOTIFICATIONTEXTMODE_H

#include <tamo/export.h>

#include <QtCore/QObject>

namespace tamo {
namespace platform {

/**
 * How a notification's body is written. There are no objects of this class; QML gets to the values
 * by qmlRegisterUncreatableType().
 *
 * @since 0.1
 */
class TAMO_EXPORT NotificationTextMode : public QObject
{
    Q_OBJECT

public:
    enum Type {
        PlainText = 0, /**< shown as it is */
        RichText = 1   /**< HTML */
    };
    Q_ENUM(Type)

    NotificationTextMode() = delete;
};

} // namespace platform
} // namespace tamo

#endif
