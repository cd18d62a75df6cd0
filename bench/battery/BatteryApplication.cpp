// SPDX-License-Identifier: Apache-2.0
#include "BatteryApplication.h"

#include "Clock.h"

#include <tamo/device/BatteryInfo.h>

#include <string>

namespace tamobench {

static std::string battery(int level)
{
    return "@battery\nStateOfCharge:n:" + std::to_string(level) + '\n';
}

BatteryApplication::BatteryApplication(Dispatcher dispatcher)
    : m_battery("/pps/services/power/battery")
    , m_charger("/pps/services/power/charger")
    , m_publisher(m_battery.openPublisher())
{
    const auto charger = m_charger.openPublisher();
    charger->prepare("@charger\nChargerInfo::CHARGE\n");
    charger->publish();
    m_publisher->prepare(battery(m_level));
    m_publisher->publish();
    m_process.start(dispatcher, [this] { run(); });
}

double BatteryApplication::publish()
{
    m_level = (m_level + 1) % 101;
    m_publisher->prepare(battery(m_level));
    const std::int64_t start = now();
    m_publisher->publish();
    return static_cast<double>(m_process.await(m_level) - start);
}

void BatteryApplication::run()
{
    using tamo::device::BatteryInfo;
    BatteryInfo info;
    QObject::connect(&info, &BatteryInfo::levelChanged,
                     [this](int level) { m_process.tell(now(), level); });
    m_process.exec();
}

} // namespace tamobench
