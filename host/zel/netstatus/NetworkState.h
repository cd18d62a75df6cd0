// SPDX-License-Identifier: Apache-2.0
#ifndef ZEL_NETSTATUS_NETWORKSTATE_H
#define ZEL_NETSTATUS_NETWORKSTATE_H

#include <pps/decoder.h>

#include <optional>
#include <string>

namespace zel {

/** A proxy; without a host, and with port 0, there is none. */
struct Proxy
{
    std::string host;
    int port = 0;
};

/** What is known of the network. */
struct NetworkState
{
    std::optional<bool> isAvailable;
    bool isHttpLoginRequired = false;
    Proxy http;
    Proxy https;
    Proxy ftp;
};

/**
 * Reads the attributes of a state out of the object or message that a decoder stands in. What is
 * missing stays as it is.
 *
 * @return NULL, or the attribute that is of another type or outside its range
 */
const char* readNetworkState(pps_decoder_t& decoder, NetworkState& state);

} // namespace zel

#endif
