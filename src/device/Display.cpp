// SPDX-License-Identifier: Apache-2.0
#include <tamo/device/Display.h>

#include "DisplayPrivate.h"

namespace tamo {
namespace device {

const int Display::displayNameSize;

Display::Display(QObject* parent) : QObject(parent), d(std::make_unique<DisplayPrivate>(this)) {}

Display::~Display() = default;

int Display::displayId() const
{
    return d->properties().id;
}

QString Display::displayName() const
{
    return d->properties().name;
}

QSize Display::pixelSize() const
{
    const DisplayProperties& properties = d->properties();
    return {properties.pixelWidth, properties.pixelHeight};
}

QSizeF Display::physicalSize() const
{
    const DisplayProperties& properties = d->properties();
    return {properties.physicalWidth, properties.physicalHeight};
}

Display::AspectType Display::aspectType() const
{
    return d->properties().aspectType;
}

Display::DisplayType Display::displayType() const
{
    return d->properties().displayType;
}

bool Display::isAttached() const
{
    return d->properties().isAttached;
}

bool Display::isDetachable() const
{
    return d->properties().isDetachable;
}

static qreal perMetre(int pixels, float millimetres)
{
    return millimetres != 0 ? qreal(pixels) * 1000 / qreal(millimetres) : 0;
}

QSizeF Display::resolution() const
{
    const DisplayProperties& properties = d->properties();
    return {perMetre(properties.pixelWidth, properties.physicalWidth),
            perMetre(properties.pixelHeight, properties.physicalHeight)};
}

} // namespace device
} // namespace tamo
