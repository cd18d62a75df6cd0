// SPDX-License-Identifier: Apache-2.0
#include "DisplayPrivate.h"

namespace tamo {
namespace device {

DisplayPrivate::DisplayPrivate(Display* display) : q(display) {}

void DisplayPrivate::createDisplay(tamomock::ScreenApi& screen, screen_display_t handle)
{
    m_screen = &screen;
    m_handle = handle;
    read();
}

void DisplayPrivate::setAttached(bool isAttached)
{
    if (properties().isAttached == isAttached)
        return;
    read();
    Q_EMIT q->attachedChanged(isAttached);
}

void DisplayPrivate::read()
{
    const auto reading = m_readings.insert(DisplayProperties::read(*m_screen, m_handle)).first;
    m_latest.store(&*reading, std::memory_order_release);
}

} // namespace device
} // namespace tamo
