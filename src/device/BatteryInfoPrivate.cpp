// SPDX-License-Identifier: Apache-2.0
#include "BatteryInfoPrivate.h"

#include <limits>

namespace tamo {
namespace device {

namespace {

constexpr int unknownLevel = -1;
constexpr int fullLevel = 100;

/** The nearest integer; unknownLevel where there is none. */
int integerOf(double number)
{
    const bool fits = number > std::numeric_limits<int>::min() - 0.5 &&
                      number < std::numeric_limits<int>::max() + 0.5;
    return fits ? static_cast<int>(qRound64(number)) : unknownLevel;
}

int levelFrom(const QVariantMap& pps)
{
    const QVariant charge =
        pps.value(QStringLiteral("@battery")).toMap().value(QStringLiteral("StateOfCharge"));
    if (charge.userType() == QMetaType::Double)
        return integerOf(charge.toDouble());
    bool converted = false;
    const int level = charge.toString().toInt(&converted);
    return converted ? level : unknownLevel;
}

BatteryInfo::ChargingState chargingStateFrom(const QVariantMap& pps, int level)
{
    const QString charger = pps.value(QStringLiteral("@charger"))
                                .toMap()
                                .value(QStringLiteral("ChargerInfo"))
                                .toString();
    if (charger == QLatin1String("NONE"))
        return BatteryInfo::Discharging;
    if (charger == QLatin1String("CHARGE"))
        return BatteryInfo::Charging;
    if (charger == QLatin1String("PLUGGED"))
        return level == fullLevel ? BatteryInfo::Full : BatteryInfo::NotCharging;
    return BatteryInfo::UnknownChargingState;
}

} // namespace

BatteryInfoPrivate::BatteryInfoPrivate(BatteryInfo* info)
    : QObject(info)
    , q(info)
    , battery(QStringLiteral("/pps/services/power/battery"), this)
    , charger(QStringLiteral("/pps/services/power/charger"), this)
    , level(levelFrom(battery.read()))
    , chargingState(chargingStateFrom(charger.read(), level))
{
    connect(&battery, SIGNAL(received(QVariantMap)), this, SLOT(onPpsBattery(QVariantMap)));
    connect(&charger, SIGNAL(received(QVariantMap)), this, SLOT(onPpsCharger(QVariantMap)));
}

// In both slots the emission is the last that is done: a receiver may delete the BatteryInfo.

void BatteryInfoPrivate::onPpsBattery(const QVariantMap& pps)
{
    level = levelFrom(pps);
    Q_EMIT q->levelChanged(level, chargingState);
}

void BatteryInfoPrivate::onPpsCharger(const QVariantMap& pps)
{
    chargingState = chargingStateFrom(pps, level);
    Q_EMIT q->levelChanged(level, chargingState);
}

} // namespace device
} // namespace tamo
