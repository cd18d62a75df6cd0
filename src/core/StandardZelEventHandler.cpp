// SPDX-License-Identifier: Apache-2.0
#include "StandardZelEventHandler.h"

#include "ZelEventDispatcher.h"

#include <tamomock/ZelApi.h>
#include <tamomock/ZelCore.h>

namespace tamo {

StandardZelEventHandler::StandardZelEventHandler(tamomock::ZelEventProvider* provider)
    : m_api(tamomock::ZelApi::instance()), m_provider(provider)
{
}

StandardZelEventHandler::~StandardZelEventHandler()
{
    endSubscription();
}

void StandardZelEventHandler::dispatchZelEvent(zel_event_t* event)
{
    handleZelEvent(m_api->core()->eventGetCode(event), event);
}

void StandardZelEventHandler::subscribe(const char* /*signal*/, int flags)
{
    const std::lock_guard lock(m_mutex);
    if (m_subscribers == 0) {
        m_api->core()->initialize();
        try {
            ZelEventDispatcher::registerForEvents(m_provider, flags, this);
        } catch (...) {
            m_api->core()->shutdown();
            throw;
        }
        m_flags = flags;
    }
    ++m_subscribers;
}

void StandardZelEventHandler::unsubscribe()
{
    const std::lock_guard lock(m_mutex);
    if (--m_subscribers != 0)
        return;
    ZelEventDispatcher::unregisterForEvents(m_provider, m_flags, this);
    m_api->core()->shutdown();
}

void StandardZelEventHandler::endSubscription() noexcept
{
    const std::lock_guard lock(m_mutex);
    if (m_subscribers > 0) {
        m_subscribers = 0;
        try {
            ZelEventDispatcher::unregisterForEvents(m_provider, m_flags, this);
        } catch (...) {
            // The dispatcher has logged it; nobody could catch it here.
        }
        m_api->core()->shutdown();
    }
    // Also what an unsubscribe() that failed has left registered.
    ZelEventDispatcher::forget(this);
}

} // namespace tamo
