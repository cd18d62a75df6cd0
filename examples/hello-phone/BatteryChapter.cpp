// SPDX-License-Identifier: Apache-2.0
#include "BatteryChapter.h"

#include "report.h"

using tamo::device::BatteryInfo;

namespace {

QString stateText(BatteryInfo::ChargingState state)
{
    switch (state) {
    case BatteryInfo::UnknownChargingState:
        return QStringLiteral("state unknown");
    case BatteryInfo::NotCharging:
        return QStringLiteral("not charging");
    case BatteryInfo::Charging:
        return QStringLiteral("charging");
    case BatteryInfo::Discharging:
        return QStringLiteral("discharging");
    case BatteryInfo::Full:
        return QStringLiteral("full");
    }
    return QString();
}

void reportBattery(int level, BatteryInfo::ChargingState state)
{
    const QString levelText =
        level < 0 ? QStringLiteral("level unknown") : QStringLiteral("%1 %").arg(level);
    report(QStringLiteral("battery: %1, %2").arg(levelText, stateText(state)));
}

} // namespace

BatteryChapter::BatteryChapter()
{
    QObject::connect(&m_battery, &BatteryInfo::levelChanged, reportBattery);
    reportBattery(m_battery.level(), m_battery.chargingState());
}
