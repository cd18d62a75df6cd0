// SPDX-License-Identifier: Apache-2.0
#include <tamo/device/Led.h>

#include "LedPrivate.h"
#include "core/ThreadChange.h"

namespace tamo {
namespace device {

Led::Led(QObject* parent) : Led(LedColor::Red, parent) {}

Led::Led(LedColor::Type color, QObject* parent)
    : QObject(parent), d(std::make_unique<LedPrivate>(this, color))
{
    // Qt 5 does not do so by itself, and would not queue colorChanged() to another thread.
    qRegisterMetaType<LedColor::Type>();
}

Led::~Led() = default;

LedColor::Type Led::color() const
{
    const LedLock::Guard guard(d->lock);
    return d->color;
}

int Led::remainingFlashCount() const
{
    const LedLock::Guard guard(d->lock);
    return d->remaining;
}

bool Led::isActive() const
{
    return remainingFlashCount() != 0;
}

void Led::setColor(LedColor::Type color)
{
    d->setColor(color);
}

void Led::resetColor()
{
    d->setColor(LedColor::Red);
}

void Led::flash()
{
    d->flash(unlimitedFlashes);
}

void Led::flash(int count)
{
    d->flash(count);
}

void Led::cancel()
{
    d->cancel();
}

bool Led::event(QEvent* event)
{
    tamo::detail::followToThread(d.get(), this, event);
    return QObject::event(event);
}

} // namespace device
} // namespace tamo
