// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_DEVICE_BATTERYINFO_H
#define TAMO_DEVICE_BATTERYINFO_H

#include <tamo/export.h>

#include <QtCore/QObject>

#include <memory>

namespace tamo {
namespace device {

class BatteryInfoPrivate;

/**
 * The battery's level, and what the charger does with it.
 *
 * The values are read when a BatteryInfo is constructed and follow the power service from then on,
 * with each event loop turn of the thread that it lives in; use it there alone. It may be moved to
 * another thread. Nothing fails: what the service has not published, or publishes malformed, is
 * unknown until its next publication. Where the power service's objects do not exist at
 * construction (on a machine without `/pps`), the values stay unknown; where an object is removed,
 * its value is unknown from then on, also when one of the same name is created later; where `/pps`
 * itself ends, the last values stay. Construct it after the QCoreApplication.
 *
 * @since 0.1
 */
class TAMO_EXPORT BatteryInfo : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int level READ level NOTIFY levelChanged)
    Q_PROPERTY(ChargingState chargingState READ chargingState NOTIFY levelChanged)

public:
    /** What the charger does. */
    enum ChargingState {
        UnknownChargingState = 0, /**< nothing is known of it */
        NotCharging = 1,          /**< it is plugged in, and the battery does not charge */
        Charging = 2,             /**< it charges the battery */
        Discharging = 3,          /**< it is not plugged in */
        Full = 4                  /**< it is plugged in, and was when the level was 100 */
    };
    Q_ENUM(ChargingState)

    explicit BatteryInfo(QObject* parent = nullptr);
    ~BatteryInfo() override;

    /** The charge in percent, as the power service says it; -1 where it is unknown. */
    int level() const;

    /**
     * The charging state. It is derived when the charger changes, not when the level does: a
     * battery that reaches 100 while plugged in is NotCharging until the charger is published
     * again.
     */
    ChargingState chargingState() const;

Q_SIGNALS:
    /**
     * The battery or the charger was published. Emitted for each publication that is read, also
     * where neither value is another than before; not for the values read at construction. The
     * receiver may delete the BatteryInfo.
     */
    void levelChanged(int level, tamo::device::BatteryInfo::ChargingState chargingState);

private:
    const std::unique_ptr<BatteryInfoPrivate> d;
};

} // namespace device
} // namespace tamo

#endif
