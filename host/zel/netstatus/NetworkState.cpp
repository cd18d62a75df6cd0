// SPDX-License-Identifier: Apache-2.0
#include "NetworkState.h"

namespace zel {
namespace {

constexpr int LargestPort = 65535;

struct ProxyAttributes
{
    const char* host;
    const char* port;
    Proxy NetworkState::*member;
};

constexpr ProxyAttributes Proxies[] = {
    {"httpProxyHost", "httpProxyPort", &NetworkState::http},
    {"httpsProxyHost", "httpsProxyPort", &NetworkState::https},
    {"ftpProxyHost", "ftpProxyPort", &NetworkState::ftp},
};

bool has(pps_decoder_t& decoder, const char* name)
{
    return pps_decoder_type(&decoder, name) != PPS_TYPE_NONE;
}

const char* readProxy(pps_decoder_t& decoder, const ProxyAttributes& attributes, Proxy& proxy)
{
    const char* host = nullptr;
    if (has(decoder, attributes.host)) {
        if (pps_decoder_get_string(&decoder, attributes.host, &host) != 0)
            return attributes.host;
        proxy.host = host;
    }
    if (has(decoder, attributes.port) &&
        pps_decoder_get_int(&decoder, attributes.port, &proxy.port) != 0)
        return attributes.port;
    // A host needs a port, and the other way round.
    const int least = proxy.host.empty() ? 0 : 1;
    const int most = proxy.host.empty() ? 0 : LargestPort;
    return proxy.port >= least && proxy.port <= most ? nullptr : attributes.port;
}

} // namespace

const char* readNetworkState(pps_decoder_t& decoder, NetworkState& state)
{
    bool isAvailable = false;
    if (has(decoder, "available")) {
        if (pps_decoder_get_bool(&decoder, "available", &isAvailable) != 0)
            return "available";
        state.isAvailable = isAvailable;
    }
    if (has(decoder, "httpProxyLoginRequired") &&
        pps_decoder_get_bool(&decoder, "httpProxyLoginRequired", &state.isHttpLoginRequired) != 0)
        return "httpProxyLoginRequired";
    for (const ProxyAttributes& attributes : Proxies) {
        if (const char* const malformed = readProxy(decoder, attributes, state.*attributes.member))
            return malformed;
    }
    return nullptr;
}

} // namespace zel
