// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_NETWORKTEXT_H
#define TAMOBOX_NETWORKTEXT_H

#include "services/network/NetworkState.h"

#include <optional>
#include <string>

namespace tamobox {

/** `up`, `down` or `unknown`. */
std::string availabilityText(const NetworkState& state);

/** A state in several lines. */
std::string networkText(const NetworkState& state);

/** An object of `available` (null where unknown) and `proxies`: `http`, `https` and `ftp`, each an
 * object of `host` and `port`, or null; and `httpLoginRequired`. */
std::string networkToJson(const NetworkState& state);

/**
 * Reads a proxy out of what somebody typed: HOST:PORT, with the host in brackets where it holds
 * colons; or `none`.
 *
 * @return nothing where it is neither
 */
std::optional<Proxy> parseProxy(const std::string& text);

} // namespace tamobox

#endif
