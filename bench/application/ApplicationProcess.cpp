// SPDX-License-Identifier: Apache-2.0
#include "ApplicationProcess.h"

#include "Clock.h"

#include <QCoreApplication>
#include <QSocketNotifier>
#include <QTimer>

#include <stdexcept>

#include <poll.h>
#include <sys/eventfd.h>

namespace tamobench {

static constexpr int started = -1;

ApplicationProcess::ApplicationProcess()
    : m_telling(::eventfd(0, EFD_CLOEXEC), "eventfd")
    , m_orders(::eventfd(0, EFD_CLOEXEC), "eventfd")
{
}

void ApplicationProcess::start(Dispatcher dispatcher, const Body& body)
{
    m_process = ChildProcess([&] {
        if (dispatcher == Dispatcher::Unix)
            qputenv("QT_NO_GLIB", "1");
        else
            qunsetenv("QT_NO_GLIB");
        int argc = 1;
        std::string name = "application";
        char* argv[] = {name.data(), nullptr};
        const QCoreApplication application(argc, argv);
        body();
    });
    await(started);
}

void ApplicationProcess::exec(const Obey& obey)
{
    QSocketNotifier orders(m_orders.get(), QSocketNotifier::Read);
    orders.setEnabled(obey != nullptr);
    QObject::connect(&orders, &QSocketNotifier::activated, [&] {
        eventfd_t order = 0;
        ::eventfd_read(m_orders.get(), &order);
        obey(static_cast<int>(order));
    });
    QTimer::singleShot(0, [this] { tell(now(), started); });
    QCoreApplication::exec();
}

void ApplicationProcess::tell(std::int64_t time, int value)
{
    m_told->time = time;
    m_told->value = value;
    ::eventfd_write(m_telling.get(), 1);
}

void ApplicationProcess::order(int order)
{
    ::eventfd_write(m_orders.get(), static_cast<eventfd_t>(order));
}

std::int64_t ApplicationProcess::await(int value)
{
    pollfd telling = {m_telling.get(), POLLIN, 0};
    if (::poll(&telling, 1, 10'000) != 1)
        throw std::runtime_error("the application does not tell " + std::to_string(value));
    eventfd_t count = 0;
    ::eventfd_read(m_telling.get(), &count);
    if (count != 1 || m_told->value != value)
        throw std::runtime_error("the application tells " + std::to_string(m_told->value) +
                                 " instead of " + std::to_string(value));
    return m_told->time;
}

} // namespace tamobench
