// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_DEVICE_LED_H
#define TAMO_DEVICE_LED_H

#include <tamo/device/LedColor.h>
#include <tamo/export.h>

#include <QtCore/QObject>

#include <memory>

namespace tamo {
namespace device {

class LedPrivate;

/**
 * A request to flash the notification LED, in one colour, a number of times or until cancelled.
 *
 * The LED service has one LED for all requests, of this application and of others, and shows one at
 * a time. Each flash that it shows in this request's colour is counted down here; so is one that
 * it shows in the same colour for somebody else. A request ends when the last flash is counted,
 * when it is cancelled, and with its Led.
 *
 * **Threads.** Any operation may be called from any thread; flashes are counted in the thread that
 * the Led lives in, which needs an event loop for that. It may be moved to another thread. Each Led
 * has a recursive lock, which is held while its signals are emitted: another thread that calls the
 * same Led waits until the slots have returned, so a slot must not wait for such a thread. A slot
 * may call this Led and any other. Two threads whose slots call each other's Leds do not lock each
 * other out: one of them is let in while the other, inside of its slot, waits. A receiver may
 * delete the Led.
 *
 * An exception out of a slot passes through to the caller; the operation is done as far as the
 * service sees it.
 *
 * Messages go through `tamomock::LedPpsChannel`, the one that is current at construction; what that
 * says of threads goes for every Led that uses it.
 *
 * @since 0.1
 */
class TAMO_EXPORT Led : public QObject
{
    Q_OBJECT
    Q_PROPERTY(tamo::device::LedColor::Type color READ color WRITE setColor RESET resetColor NOTIFY
                   colorChanged)
    Q_PROPERTY(int remainingFlashCount READ remainingFlashCount NOTIFY remainingFlashCountChanged)
    Q_PROPERTY(bool active READ isActive NOTIFY activeChanged)

public:
    /**
     * An inactive, red Led.
     *
     * @throws tamo::Exception where the LED service's objects cannot be opened
     */
    explicit Led(QObject* parent = nullptr);

    /** An inactive Led of a colour. @throws tamo::Exception as above */
    explicit Led(LedColor::Type color, QObject* parent = nullptr);

    /** Withdraws an active request; no signal is emitted. */
    ~Led() override;

    LedColor::Type color() const;

    /** How many flashes are still to be counted: 0 while inactive, -1 for no limit. */
    int remainingFlashCount() const;

    /** Whether there is a request. */
    bool isActive() const;

    /**
     * Changes the colour. An active request goes on in the new colour, with the flashes that
     * remain: the service sees it withdrawn and made anew. LedColor::None, and what is no colour,
     * cancels it; activeChanged() is emitted then, and colorChanged() is not.
     */
    void setColor(LedColor::Type color);

    /** Sets LedColor::Red. */
    void resetColor();

    /** Flashes until cancelled; as flash(-1). */
    Q_INVOKABLE void flash();

    /**
     * Flashes a number of times. While active it sets, without a signal, how many flashes remain
     * to be counted, and the service is not told; 0 cancels. While inactive, 0 does nothing, and
     * neither does any count in the colour LedColor::None.
     *
     * @param count how often; every negative number is without limit
     */
    Q_INVOKABLE void flash(int count);

    /** Withdraws the request, if there is one. */
    Q_INVOKABLE void cancel();

Q_SIGNALS:
    /** Not emitted where LedColor::None has ended a request. */
    void colorChanged(tamo::device::LedColor::Type value);

    /** A flash was counted, and this many remain; not emitted for the last one, nor by flash(). */
    void remainingFlashCountChanged(int value);

    void activeChanged(bool value);

protected:
    bool event(QEvent* event) override;

private:
    const std::unique_ptr<LedPrivate> d;
};

} // namespace device
} // namespace tamo

#endif
