// SPDX-License-Identifier: Apache-2.0
#include <tamo/device/DisplayManager.h>

#include "DisplayManagerPrivate.h"

namespace tamo {
namespace device {

DisplayManager::DisplayManager(QObject* parent)
    : QObject(parent), d(std::make_unique<DisplayManagerPrivate>(this))
{
}

DisplayManager::~DisplayManager() = default;

int DisplayManager::primaryDisplayId() const
{
    return d->primaryDisplayId();
}

QList<int> DisplayManager::secondaryDisplayIds() const
{
    return d->secondaryDisplayIds();
}

Display* DisplayManager::getDisplay(int displayId)
{
    return d->getDisplay(displayId);
}

void DisplayManager::connectNotify(const QMetaMethod& signal)
{
    d->connected(signal);
}

void DisplayManager::disconnectNotify(const QMetaMethod&)
{
    d->disconnected();
}

} // namespace device
} // namespace tamo
