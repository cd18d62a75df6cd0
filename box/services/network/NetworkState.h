// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_NETWORKSTATE_H
#define TAMOBOX_NETWORKSTATE_H

#include "pps/MessageReader.h"
#include "pps/MessageWriter.h"

#include <optional>
#include <string>

namespace tamobox {

/** A proxy; without a host, and with port 0, there is none. */
struct Proxy
{
    std::string host; ///< a name or an address
    int port = 0;     ///< 1 to 65535
};

/** What is known of the network, as `/pps/services/network/status` describes it. */
struct NetworkState
{
    /** The object that holds it. */
    static constexpr const char* object = "services/network/status";

    std::optional<bool> isAvailable; ///< nothing where it is unknown
    Proxy http;
    Proxy https;
    Proxy ftp;
    bool isHttpLoginRequired = false;

    /**
     * Reads the text of the object; what is missing in it is as in a new NetworkState.
     *
     * @throws Failure where an attribute is of another type or value than docs/platform-objects.md
     * says
     */
    static NetworkState fromMessage(const std::string& message);

    /** What is published in the box that this process is in. Throws as fromMessage(), and
     * ObjectFailure. */
    static NetworkState published();

    /** Takes over the attributes that a message has; throws as fromMessage(). */
    void read(const MessageReader& message);

    /** Adds every attribute that is known to a message. */
    void write(MessageWriter& message) const;
};

} // namespace tamobox

#endif
