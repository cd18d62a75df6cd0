// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_DEVICE_LEDCOLOR_H
#define TAMO_DEVICE_LEDCOLOR_H

#include <tamo/export.h>

#include <QtCore/QObject>
#include <QtCore/QString>

namespace tamo {
namespace device {

/**
 * The colours of the notification LED. There are no objects of this class; QML gets to the values
 * by qmlRegisterUncreatableType().
 *
 * All operations may be called from any thread.
 *
 * @since 0.1
 */
class TAMO_EXPORT LedColor : public QObject
{
    Q_OBJECT

public:
    /** A colour as a 24-bit RGB integer. */
    enum Type {
        None = 0, /**< no colour: the LED stays dark */
        Red = 0xFF0000,
        Green = 0x00FF00,
        Blue = 0x0000FF,
        Yellow = 0xFFFF00,
        Cyan = 0x00FFFF,
        Magenta = 0xFF00FF,
        White = 0xFFFFFF
    };
    Q_ENUM(Type)

    LedColor() = delete;

    /** The colour in which these components are lit; None where none is. */
    static Type fromBitset(bool red, bool green, bool blue);

    /** The capitalised English name ("Red"); a null string for None and for what is no Type. */
    static QString toName(Type color);
};

} // namespace device
} // namespace tamo

#endif
