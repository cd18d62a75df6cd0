// SPDX-License-Identifier: Apache-2.0
#include <tamo/device/BatteryInfo.h>

#include "BatteryInfoPrivate.h"

namespace tamo {
namespace device {

BatteryInfo::BatteryInfo(QObject* parent)
    : QObject(parent), d(std::make_unique<BatteryInfoPrivate>(this))
{
    // Qt 5 does not do so by itself, and would not queue levelChanged() to another thread.
    qRegisterMetaType<ChargingState>();
}

BatteryInfo::~BatteryInfo() = default;

int BatteryInfo::level() const
{
    return d->level;
}

BatteryInfo::ChargingState BatteryInfo::chargingState() const
{
    return d->chargingState;
}

} // namespace device
} // namespace tamo
