// SPDX-License-Identifier: Apache-2.0
// Any bytes as a message of the network's, and as its object: an event or a state that can be
// looked at, or a reason why not.
#include "Require.h"

#include "netstatus/NetStatusMessage.h"

#include <zel/netstatus.h>

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace {

void walk(const zel::NetworkState& state)
{
    for (const zel::Proxy& proxy : {state.http, state.https, state.ftp}) {
        require(proxy.host.size() == std::strlen(proxy.host.c_str()), "a host holds a NUL");
        require(proxy.port >= 0 && proxy.port <= 65535, "a port is out of its range");
        require(proxy.host.empty() == (proxy.port == 0), "a host without a port, or a port alone");
    }
}

void readAsMessage(std::vector<char> text)
{
    std::string fault;
    const auto event = zel::readNetStatusMessage({text.data(), text.size() - 1}, fault);
    require(bool(event) == fault.empty(), "neither an event nor a reason, or both");
    if (!event)
        return;
    require(event->domain() == zel::number(zel::Domain::NetStatus), "another domain's event");
    require(event->payload() == nullptr, "a service's event has a payload");
    require(event->code() != NETSTATUS_INFO || event->state().isAvailable,
            "a report that reports nothing");
    walk(event->state());
}

void readAsObject(std::vector<char> text)
{
    zel::NetworkState state;
    const int error = zel::readNetStatusObject({text.data(), text.size() - 1}, state);
    require(error == 0 || error == EBADMSG, "another error than that it is malformed");
    if (!error)
        walk(state);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::vector<char> text(data, data + size); // exactly as long, for the sanitizer to see
    text.push_back('\0');
    readAsMessage(text);
    readAsObject(text);
    return 0;
}
