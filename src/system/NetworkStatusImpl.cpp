// SPDX-License-Identifier: Apache-2.0
#include "NetworkStatusImpl.h"

#include "core/Log.h"

#include <tamomock/ZelApi.h>
#include <tamomock/ZelNetStatus.h>

#include <cerrno>
#include <cstring>

namespace tamo {
namespace system {

using detail::logErrorLine;

NetworkStatusImpl::NetworkStatusImpl(int networkType, bool isExternal)
    : StandardZelEventHandler(tamomock::ZelApi::instance()->netStatus())
    , m_networkType(networkType)
    , m_isExternal(isExternal)
    , m_subscription(
          *this, staticMetaObject,
          [this](const QMetaMethod& signal) { return isSignalConnected(signal); }, *this)
{
}

NetworkStatusImpl::~NetworkStatusImpl()
{
    m_subscription.end();
}

void NetworkStatusImpl::connectNotify(const QMetaMethod& signal)
{
    m_subscription.connected(signal);
}

void NetworkStatusImpl::disconnectNotify(const QMetaMethod&)
{
    m_subscription.disconnected();
}

bool NetworkStatusImpl::isConnected()
{
    bool isAvailable = false;
    errno = 0;
    if (api().netStatus()->getAvailability(&isAvailable) == 0)
        return isAvailable;
    const int error = errno;
    logErrorLine("netstatus_get_availability() failed:", error, " - ", std::strerror(error));
    return false;
}

bool NetworkStatusImpl::isExternal()
{
    return m_isExternal;
}

int NetworkStatusImpl::networkType()
{
    return m_networkType;
}

void NetworkStatusImpl::handleZelEvent(int code, zel_event_t* event)
{
    if (code != NETSTATUS_INFO) {
        logErrorLine(
            "NetworkStatusImpl::handleZelEvent(): Event received: Unknown netstatus event: ", code);
        return;
    }
    if (api().netStatus()->eventGetAvailability(event))
        Q_EMIT networkConnected();
    else
        Q_EMIT networkDisconnected();
}

} // namespace system
} // namespace tamo
