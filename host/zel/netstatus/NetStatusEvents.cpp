// SPDX-License-Identifier: Apache-2.0
#include "NetStatusEvent.h"
#include "NetStatusMessage.h"

#include "common/Call.h"
#include "core/Diagnostics.h"
#include "core/ObjectWatch.h"

#include <zel/netstatus.h>

using zel::NetStatusEvent;
using zel::NetworkState;
using zel::Proxy;

namespace {

constexpr char EventsPath[] = "/pps/services/network/events";

/** Makes events of what the network service says. */
class NetStatusListener final : public zel::ObjectListener
{
public:
    void begin(zel::ObjectMessage message, zel::EventSink& events) override
    {
        receive(message, events);
    }

    bool receive(zel::ObjectMessage message, zel::EventSink& events) override
    {
        std::string fault;
        if (auto event = zel::readNetStatusMessage(message, fault))
            events.push(std::move(event));
        else
            zel::say(zel::Level::Unreadable, "a message of the network is left out: %s",
                     fault.c_str());
        return true;
    }
};

/** The state that an event carries; NULL, with EINVAL, for events of others. */
const NetworkState* stateOf(const zel_event_t* event)
{
    const auto* const networks = dynamic_cast<const NetStatusEvent*>(event);
    if (!networks)
        errno = EINVAL;
    return networks ? &networks->state() : nullptr;
}

const char* hostOf(const zel_event_t* event, Proxy NetworkState::*proxy)
{
    const NetworkState* const state = stateOf(event);
    return state ? (state->*proxy).host.c_str() : nullptr;
}

int portOf(const zel_event_t* event, Proxy NetworkState::*proxy)
{
    const NetworkState* const state = stateOf(event);
    return state ? (state->*proxy).port : -1;
}

} // namespace

int netstatus_request_events(int flags)
{
    return host::call([&] {
        if (flags != 0)
            return EINVAL;
        return zel::watchObject(zel::Domain::NetStatus, 0, EventsPath,
                                [] { return std::make_unique<NetStatusListener>(); });
    });
}

int netstatus_get_domain(void)
{
    return number(zel::Domain::NetStatus);
}

bool netstatus_event_get_availability(const zel_event_t* event)
{
    const NetworkState* const state = stateOf(event);
    if (state && state->isAvailable)
        return *state->isAvailable;
    errno = EINVAL;
    return false;
}

bool netstatus_event_get_http_proxy_login_required(const zel_event_t* event)
{
    const NetworkState* const state = stateOf(event);
    return state && state->isHttpLoginRequired;
}

const char* netstatus_event_get_http_proxy_host(const zel_event_t* event)
{
    return hostOf(event, &NetworkState::http);
}

int netstatus_event_get_http_proxy_port(const zel_event_t* event)
{
    return portOf(event, &NetworkState::http);
}

const char* netstatus_event_get_https_proxy_host(const zel_event_t* event)
{
    return hostOf(event, &NetworkState::https);
}

int netstatus_event_get_https_proxy_port(const zel_event_t* event)
{
    return portOf(event, &NetworkState::https);
}

const char* netstatus_event_get_ftp_proxy_host(const zel_event_t* event)
{
    return hostOf(event, &NetworkState::ftp);
}

int netstatus_event_get_ftp_proxy_port(const zel_event_t* event)
{
    return portOf(event, &NetworkState::ftp);
}
