// SPDX-License-Identifier: Apache-2.0
#include "BatteryApplication.h"

#include "Clock.h"

#include <tamo/device/BatteryInfo.h>

#include <QCoreApplication>
#include <QTimer>

#include <iostream>
#include <stdexcept>
#include <string>

#include <poll.h>
#include <sys/eventfd.h>

namespace tamobench {

BatteryApplication::BatteryApplication(Dispatcher dispatcher)
    : m_done(::eventfd(0, EFD_CLOEXEC), "eventfd")
    , m_battery("/pps/services/power/battery")
    , m_charger("/pps/services/power/charger")
    , m_publisher(m_battery.openPublisher())
{
    const auto charger = m_charger.openPublisher();
    charger->prepare("@charger\nChargerInfo::CHARGE\n");
    charger->publish();
    m_publisher->prepare("@battery\nStateOfCharge:n:50\n");
    m_publisher->publish();
    m_process = ChildProcess([this, dispatcher] { run(dispatcher); });
    awaitDone("start");
}

double BatteryApplication::publish()
{
    const int level = (*m_expected + 1) % 101;
    *m_expected = level;
    m_publisher->prepare("@battery\nStateOfCharge:n:" + std::to_string(level) + '\n');
    const std::int64_t start = now();
    m_publisher->publish();
    awaitDone("hear of the level");
    if (*m_heard < start)
        throw std::logic_error("the application is out of step with the publisher");
    return static_cast<double>(*m_heard - start);
}

void BatteryApplication::awaitDone(const char* what)
{
    pollfd done = {m_done.get(), POLLIN, 0};
    if (::poll(&done, 1, 10'000) != 1)
        throw std::runtime_error(std::string("the application does not ") + what);
    eventfd_t count = 0;
    ::eventfd_read(m_done.get(), &count);
}

void BatteryApplication::run(Dispatcher dispatcher)
{
    if (dispatcher == Unix)
        qputenv("QT_NO_GLIB", "1");
    else
        qunsetenv("QT_NO_GLIB");
    int argc = 1;
    std::string name = "battery";
    char* argv[] = {name.data(), nullptr};
    QCoreApplication application(argc, argv);

    using tamo::device::BatteryInfo;
    BatteryInfo info;
    QObject::connect(&info, &BatteryInfo::levelChanged, [this](int level) {
        *m_heard = now();
        if (level != *m_expected) {
            std::cerr << "levelChanged(" << level << ") instead of " << *m_expected << '\n';
            QCoreApplication::exit(EXIT_FAILURE);
            return;
        }
        ::eventfd_write(m_done.get(), 1);
    });
    QTimer::singleShot(0, [this] { ::eventfd_write(m_done.get(), 1); });
    application.exec();
}

} // namespace tamobench
