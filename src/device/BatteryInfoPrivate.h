// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_DEVICE_BATTERYINFOPRIVATE_H
#define TAMO_DEVICE_BATTERYINFOPRIVATE_H

#include "PpsHelper.h"

#include <tamo/device/BatteryInfo.h>

#include <QtCore/QObject>
#include <QtCore/QVariant>

namespace tamo {
namespace device {

/** A BatteryInfo's values, and the subscriptions that they come from. It is the BatteryInfo's
 * child, and they are its children, to be moved to other threads together. */
class BatteryInfoPrivate : public QObject
{
    Q_OBJECT

public:
    explicit BatteryInfoPrivate(BatteryInfo* info);

    BatteryInfo* const q;
    detail::PpsHelper battery;
    detail::PpsHelper charger;
    int level;
    BatteryInfo::ChargingState chargingState;

public Q_SLOTS:
    void onPpsBattery(const QVariantMap& pps);
    void onPpsCharger(const QVariantMap& pps);
};

} // namespace device
} // namespace tamo

#endif
