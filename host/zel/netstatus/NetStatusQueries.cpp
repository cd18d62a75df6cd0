// SPDX-License-Identifier: Apache-2.0
#include "NetStatusMessage.h"

#include "common/Call.h"
#include "common/ObjectText.h"

#include <zel/netstatus.h>

#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string>
#include <vector>

using zel::NetworkState;
using zel::Proxy;

namespace {

constexpr char StatusPath[] = "/pps/services/network/status";

/** Reads what is published now. 0 or an `errno` value. */
int readState(NetworkState& state)
{
    std::string text;
    if (const int error = host::readObject(StatusPath, text))
        return error;
    if (text.empty())
        return ENOENT; // it was never published
    return zel::readNetStatusObject({text.data(), text.size()}, state);
}

struct HostMember
{
    Proxy NetworkState::*proxy;
    const char* netstatus_proxy_details_t::*host;
    int netstatus_proxy_details_t::*port;
};

constexpr HostMember Members[] = {
    {&NetworkState::http, &netstatus_proxy_details_t::http_proxy_host,
     &netstatus_proxy_details_t::http_proxy_port},
    {&NetworkState::https, &netstatus_proxy_details_t::https_proxy_host,
     &netstatus_proxy_details_t::https_proxy_port},
    {&NetworkState::ftp, &netstatus_proxy_details_t::ftp_proxy_host,
     &netstatus_proxy_details_t::ftp_proxy_port},
};

/** Makes a record: one piece of memory, with the texts behind it. NULL: there is none. */
netstatus_proxy_details_t* makeRecord(const NetworkState& state)
{
    std::size_t size = sizeof(netstatus_proxy_details_t);
    for (const HostMember& member : Members)
        size += (state.*member.proxy).host.size() + 1;
    void* const memory = std::malloc(size);
    if (!memory)
        return nullptr;
    auto* const record = new (memory) netstatus_proxy_details_t{};
    record->http_proxy_login_required = state.isHttpLoginRequired;
    char* end = static_cast<char*>(memory) + sizeof(netstatus_proxy_details_t);
    for (const HostMember& member : Members) {
        const Proxy& proxy = state.*member.proxy;
        std::memcpy(end, proxy.host.c_str(), proxy.host.size() + 1);
        record->*member.host = end;
        record->*member.port = proxy.port;
        end += proxy.host.size() + 1;
    }
    return record;
}

} // namespace

int netstatus_get_availability(bool* available)
{
    return host::call([&] {
        if (!available)
            return EINVAL;
        NetworkState state;
        if (const int error = readState(state))
            return error;
        if (!state.isAvailable)
            return ENOENT;
        *available = *state.isAvailable;
        return 0;
    });
}

int netstatus_get_proxy_details(netstatus_proxy_details_t** details)
{
    return host::call([&] {
        if (!details)
            return EINVAL;
        *details = nullptr;
        NetworkState state;
        if (const int error = readState(state))
            return error;
        *details = makeRecord(state);
        return *details ? 0 : ENOMEM;
    });
}

void netstatus_free_proxy_details(netstatus_proxy_details_t** details)
{
    if (!details)
        return;
    std::free(*details);
    *details = nullptr;
}
