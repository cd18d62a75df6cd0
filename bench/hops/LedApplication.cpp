// SPDX-License-Identifier: Apache-2.0
#include "LedApplication.h"

#include "Clock.h"

#include <tamo/device/Led.h>

#include <stdexcept>
#include <string>

namespace tamobench {

static constexpr int flashes = 1'000'000;
static const std::string dark = "@status\nred::off\ngreen::off\nblue::off\n";
static const std::string red = "@status\nred::on\ngreen::off\nblue::off\n";

LedApplication::LedApplication(Dispatcher dispatcher)
    : m_remaining(flashes)
    , m_control("/pps/services/led/control")
    , m_status("/pps/services/led/status")
    , m_publisher(m_status.openPublisher())
{
    m_publisher->prepare(dark);
    m_publisher->publish();
    m_process.start(dispatcher, [this] { run(); });
    if (m_control.readRequest().find("requestLED") == std::string_view::npos)
        throw std::runtime_error("the application does not ask for flashes");
    m_publisher->prepare(red);
}

double LedApplication::publishFlash()
{
    const std::int64_t start = now();
    m_publisher->publish();
    return static_cast<double>(m_process.await(--m_remaining) - start);
}

std::size_t LedApplication::flashSize()
{
    return red.size();
}

void LedApplication::run()
{
    using tamo::device::Led;
    Led led(tamo::device::LedColor::Red);
    QObject::connect(&led, &Led::remainingFlashCountChanged,
                     [this](int remaining) { m_process.tell(now(), remaining); });
    led.flash(flashes);
    m_process.exec();
}

} // namespace tamobench
