// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_DEVICE_DISPLAY_H
#define TAMO_DEVICE_DISPLAY_H

#include <tamo/export.h>

#include <QtCore/QObject>
#include <QtCore/QSize>
#include <QtCore/QSizeF>
#include <QtCore/QString>

#include <memory>

namespace tamo {
namespace device {

class DisplayManagerPrivate;
class DisplayPrivate;

/**
 * One display, as it was when it was last read: by the DisplayManager's constructor, or when the
 * display was attached or detached since.
 *
 * The DisplayManager makes its displays, owns them, and deletes them with itself; an application
 * does not delete them. One that an application constructs itself belongs to no manager and keeps
 * the values that are named below as those of no display.
 *
 * A display may be read from any thread, at any time, without waiting. Each call answers from one
 * whole reading; two calls may answer from different ones, where the display is attached or
 * detached in between. A reading that fails changes nothing.
 *
 * @since 0.1
 */
class TAMO_EXPORT Display : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int displayId READ displayId)
    Q_PROPERTY(QString displayName READ displayName)
    Q_PROPERTY(QSize pixelSize READ pixelSize)
    Q_PROPERTY(QSizeF physicalSize READ physicalSize)
    Q_PROPERTY(AspectType aspectType READ aspectType)
    Q_PROPERTY(DisplayType displayType READ displayType)
    Q_PROPERTY(bool attached READ isAttached NOTIFY attachedChanged)
    Q_PROPERTY(bool detachable READ isDetachable)

public:
    /** The shape of pixelSize(). */
    enum AspectType {
        Landscape = 0, /**< wider than high */
        Portrait = 1,  /**< higher than wide */
        Square = 2     /**< as wide as high */
    };
    Q_ENUM(AspectType)

    /** Where a display is. */
    enum DisplayType {
        DisplayTypeInternal = 0, /**< built into the phone */
        DisplayTypeExternal = 1  /**< anywhere else */
    };
    Q_ENUM(DisplayType)

    /** The longest name in bytes of UTF-8, with a zero that ends it. */
    static const int displayNameSize = 129;

    explicit Display(QObject* parent = nullptr);
    ~Display() override;

    /** The display's number, its own among those that are there; -1: no display. */
    int displayId() const;

    /** Its name; empty where it has none, and for no display. */
    QString displayName() const;

    /**
     * Width and height in pixels, as the display stands at rotation 0, however it is turned. As the
     * screen library says it, so it may be 0 or less where that is wrong; 0 x 0: no display.
     */
    QSize pixelSize() const;

    /** Width and height in millimetres; 0 where they are not known, and for no display. */
    QSizeF physicalSize() const;

    /** The shape of pixelSize(); Square for no display. */
    AspectType aspectType() const;

    /** DisplayTypeExternal for no display. */
    DisplayType displayType() const;

    /** Whether it is there; false for no display. */
    bool isAttached() const;

    /** Whether it can be taken away; false for no display. */
    bool isDetachable() const;

    /**
     * Pixels per metre, of the width and of the height: from pixelSize() and physicalSize(). 0 in a
     * direction whose physical extent is 0.
     */
    QSizeF resolution() const;

Q_SIGNALS:
    /**
     * The display was attached (true) or detached (false). Emitted before the DisplayManager's own
     * signal, and like that one: on a thread of the library's, while something is connected to a
     * signal of the DisplayManager.
     */
    void attachedChanged(bool attached);

private:
    friend class DisplayManagerPrivate;
    const std::unique_ptr<DisplayPrivate> d;
};

} // namespace device
} // namespace tamo

#endif
