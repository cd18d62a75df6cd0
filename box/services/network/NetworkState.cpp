// SPDX-License-Identifier: Apache-2.0
#include "NetworkState.h"

#include "common/Failure.h"
#include "pps/ObjectFile.h"

#include <fcntl.h>

#include <array>

namespace tamobox {

namespace {

constexpr int largestPort = 65535;

struct ProxyAttributes
{
    const char* host;
    const char* port;
    Proxy NetworkState::*proxy;
};

constexpr std::array<ProxyAttributes, 3> proxies = {{
    {"httpProxyHost", "httpProxyPort", &NetworkState::http},
    {"httpsProxyHost", "httpsProxyPort", &NetworkState::https},
    {"ftpProxyHost", "ftpProxyPort", &NetworkState::ftp},
}};

void check(bool isRight, const std::string& name, const char* what)
{
    if (!isRight)
        throw Failure(name + " must be " + what);
}

std::optional<bool> flagIn(const MessageReader& message, const char* name)
{
    if (!message.has(name))
        return std::nullopt;
    const std::optional<bool> flag = message.boolean(name);
    check(flag.has_value(), name, "true or false");
    return flag;
}

void readProxy(const MessageReader& message, const ProxyAttributes& attributes, Proxy& proxy)
{
    if (message.has(attributes.host)) {
        const std::optional<std::string> host = message.string(attributes.host);
        check(host.has_value(), attributes.host, "a text");
        proxy.host = *host;
    }
    if (message.has(attributes.port)) {
        const std::optional<int> port = message.integer(attributes.port);
        check(port && *port >= 0 && *port <= largestPort, attributes.port,
              "a whole number from 0 to 65535");
        proxy.port = *port;
    }
    check(proxy.host.empty() == (proxy.port == 0), attributes.port,
          proxy.host.empty() ? "0, or there must be a host" : "above 0, since there is a host");
}

} // namespace

NetworkState NetworkState::fromMessage(const std::string& message)
{
    const std::string place = "/pps/" + std::string(object) + ": ";
    NetworkState state;
    try {
        MessageReader reader(message);
        check(reader.enter("@status"), "the text", "an object, @status");
        state.read(reader);
    } catch (const Failure& failure) {
        throw Failure(place + failure.what());
    }
    return state;
}

NetworkState NetworkState::published()
{
    const std::optional<std::string> text = ObjectFile(object, O_RDONLY | O_NONBLOCK).read();
    return text ? fromMessage(*text) : NetworkState();
}

void NetworkState::read(const MessageReader& message)
{
    NetworkState state = *this;
    if (const auto flag = flagIn(message, "available"))
        state.isAvailable = flag;
    state.isHttpLoginRequired =
        flagIn(message, "httpProxyLoginRequired").value_or(state.isHttpLoginRequired);
    for (const ProxyAttributes& attributes : proxies)
        readProxy(message, attributes, state.*attributes.proxy);
    *this = state;
}

void NetworkState::write(MessageWriter& message) const
{
    if (isAvailable)
        message.add("available", *isAvailable);
    message.add("httpProxyLoginRequired", isHttpLoginRequired);
    for (const ProxyAttributes& attributes : proxies) {
        const Proxy& proxy = this->*attributes.proxy;
        message.add(attributes.host, proxy.host).add(attributes.port, proxy.port);
    }
}

} // namespace tamobox
