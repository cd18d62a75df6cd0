// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_SYSTEM_NETWORKSTATUSIMPL_H
#define TAMO_SYSTEM_NETWORKSTATUSIMPL_H

#include "core/ConnectionSubscription.h"
#include "core/StandardZelEventHandler.h"

#include <tamo/system/NetworkStatus.h>

namespace tamo {
namespace system {

/** A NetworkStatus: turns the reports of the network status' domain into signals. It has no state
 * that changes, and so no lock. */
class NetworkStatusImpl : public NetworkStatus, public StandardZelEventHandler
{
public:
    NetworkStatusImpl(int networkType, bool isExternal);
    ~NetworkStatusImpl() override;

    bool isConnected() override;
    bool isExternal() override;
    int networkType() override;

    void handleZelEvent(int code, zel_event_t* event) override;

protected:
    void connectNotify(const QMetaMethod& signal) override;
    void disconnectNotify(const QMetaMethod& signal) override;

private:
    const int m_networkType;
    const bool m_isExternal;
    ConnectionSubscription m_subscription;
};

} // namespace system
} // namespace tamo

#endif
