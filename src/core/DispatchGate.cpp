// SPDX-License-Identifier: Apache-2.0
#include "DispatchGate.h"

#include "NeverDestroyed.h"

#include <QtCore/QCoreApplication>

#include <chrono>

namespace tamo {

namespace {

constexpr auto callLimit = std::chrono::seconds(5);

detail::NeverDestroyed<DispatchGate> gate;

void shutWithTheApplication()
{
    gate->shut();
}

// Runs in the constructor of each application object; for one that is there already when the
// library is loaded, at once.
void openWithTheApplication()
{
    gate->open();
    qAddPostRoutine(shutWithTheApplication);
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(openWithTheApplication)

DispatchGate& DispatchGate::instance()
{
    return *gate;
}

bool DispatchGate::enter()
{
    const std::lock_guard lock(m_mutex);
    m_isCalling = !m_isShut;
    m_caller = std::this_thread::get_id();
    return m_isCalling;
}

void DispatchGate::leave()
{
    const std::lock_guard lock(m_mutex);
    m_isCalling = false;
    if (m_isShut)
        m_callEnded.notify_all();
}

bool DispatchGate::shut()
{
    std::unique_lock lock(m_mutex);
    if (m_isShut)
        return !m_isCalling;
    m_isShut = true;
    if (m_caller != std::this_thread::get_id())
        m_callEnded.wait_for(lock, callLimit, [this] { return !m_isCalling; });
    return !m_isCalling;
}

void DispatchGate::open()
{
    const std::lock_guard lock(m_mutex);
    m_isShut = false;
}

} // namespace tamo
