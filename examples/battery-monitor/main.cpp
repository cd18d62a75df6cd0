// SPDX-License-Identifier: Apache-2.0
#include <QCoreApplication>

#include <tamo/device/BatteryInfo.h>

#include <iostream>

using tamo::device::BatteryInfo;

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    BatteryInfo battery;
    // The level is -1 while nobody has said what it is.
    const auto print = [](int level) { std::cout << "battery: " << level << " %" << std::endl; };
    print(battery.level());
    QObject::connect(&battery, &BatteryInfo::levelChanged, print);
    return app.exec();
}
