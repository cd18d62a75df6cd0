// SPDX-License-Identifier: Apache-2.0
#ifndef ZEL_NETSTATUS_NETSTATUSEVENT_H
#define ZEL_NETSTATUS_NETSTATUSEVENT_H

#include "NetworkState.h"

#include "core/Domain.h"
#include "core/Event.h"

#include <utility>

namespace zel {

/** An event of the network status': the state as it was when it was told. */
class NetStatusEvent final : public zel_event
{
public:
    NetStatusEvent(int code, NetworkState state)
        : zel_event(number(Domain::NetStatus), code), m_state(std::move(state))
    {
    }

    const NetworkState& state() const { return m_state; }

private:
    const NetworkState m_state;
};

} // namespace zel

#endif
