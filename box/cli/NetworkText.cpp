// SPDX-License-Identifier: Apache-2.0
#include "NetworkText.h"

#include "common/Json.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace tamobox {

namespace {

struct NamedProxy
{
    const char* name;
    Proxy NetworkState::*proxy;
};

constexpr std::array<NamedProxy, 3> proxies = {{
    {"http", &NetworkState::http},
    {"https", &NetworkState::https},
    {"ftp", &NetworkState::ftp},
}};

// A host is anybody's text, and a terminal obeys some of it.
std::string printable(std::string text)
{
    const auto isControl = [](char byte) { return (byte >= 0 && byte < ' ') || byte == 0x7F; };
    std::replace_if(text.begin(), text.end(), isControl, '?');
    return text;
}

std::string proxyText(const Proxy& proxy)
{
    if (proxy.host.empty())
        return "none";
    const bool needsBrackets = proxy.host.find(':') != std::string::npos;
    const std::string host = printable(proxy.host);
    return (needsBrackets ? '[' + host + ']' : host) + ':' + std::to_string(proxy.port);
}

} // namespace

std::string availabilityText(const NetworkState& state)
{
    return !state.isAvailable ? "unknown" : *state.isAvailable ? "up" : "down";
}

std::string networkText(const NetworkState& state)
{
    std::string text = "network      " + availabilityText(state) + '\n';
    for (const NamedProxy& named : proxies) {
        std::string label = std::string(named.name) + " proxy";
        label.resize(13, ' ');
        text += label + proxyText(state.*named.proxy);
        if (named.proxy == &NetworkState::http && state.isHttpLoginRequired)
            text += ", asks for a name and password";
        text += '\n';
    }
    return text;
}

std::string networkToJson(const NetworkState& state)
{
    Json json;
    json.startObject().key("available");
    state.isAvailable ? json.boolean(*state.isAvailable) : json.null();
    json.key("proxies").startObject();
    for (const NamedProxy& named : proxies) {
        const Proxy& proxy = state.*named.proxy;
        json.key(named.name);
        if (proxy.host.empty())
            json.null();
        else
            json.startObject()
                .key("host")
                .string(proxy.host)
                .key("port")
                .number(proxy.port)
                .endObject();
    }
    json.endObject().key("httpLoginRequired").boolean(state.isHttpLoginRequired);
    return json.endObject().text();
}

std::optional<Proxy> parseProxy(const std::string& text)
{
    if (text == "none")
        return Proxy();
    const std::size_t colon = text.rfind(':');
    if (colon == std::string::npos)
        return std::nullopt;
    Proxy proxy;
    proxy.host = text.substr(0, colon);
    const bool isBracketed =
        proxy.host.size() > 2 && proxy.host.front() == '[' && proxy.host.back() == ']';
    if (isBracketed)
        proxy.host = proxy.host.substr(1, proxy.host.size() - 2);
    else if (proxy.host.find_first_of(":[]") != std::string::npos)
        return std::nullopt;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data() + colon + 1, end, proxy.port);
    const bool isPort =
        result.ec == std::errc() && result.ptr == end && proxy.port >= 1 && proxy.port <= 65535;
    if (!isPort || proxy.host.empty())
        return std::nullopt;
    return proxy;
}

} // namespace tamobox
