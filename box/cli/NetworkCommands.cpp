// SPDX-License-Identifier: Apache-2.0
#include "BoxEntrance.h"
#include "CommandLine.h"
#include "Commands.h"
#include "ControlClient.h"
#include "NetworkText.h"
#include "NumberCheck.h"

#include "common/Failure.h"

#include <array>
#include <cstdio>
#include <memory>

namespace tamobox {

namespace {

using Fill = std::function<void(MessageWriter&)>;

struct ProxyOption
{
    const char* name;
    const char* host; ///< in the request
    const char* port;
    const char* description;
};

constexpr std::array<ProxyOption, 3> proxyOptions = {{
    {"--http", "httpProxyHost", "httpProxyPort", "The proxy for HTTP"},
    {"--https", "httpsProxyHost", "httpsProxyPort", "The proxy for HTTPS"},
    {"--ftp", "ftpProxyHost", "ftpProxyPort", "The proxy for FTP"},
}};

struct NetworkArguments
{
    int count = 2;
    int code = 0;
    std::array<std::optional<std::string>, proxyOptions.size()> proxies;
    std::optional<bool> isLoginRequired;
};

void print(const CommonOptions& options)
{
    const NetworkState state = NetworkState::published();
    if (options.json)
        std::printf("%s\n", networkToJson(state).c_str());
    else
        std::printf("%s", networkText(state).c_str());
}

int show(const CommonOptions& options)
{
    enterBox(options.box, Depth::Files);
    print(options);
    return 0;
}

// Asks for a command; as JSON it prints what the network is like then.
int ask(const CommonOptions& options, const char* command, const Fill& fill)
{
    enterBox(options.box, Depth::Files);
    ControlClient("box/network").ask(command, fill);
    if (options.json)
        print(options);
    return 0;
}

int setProxies(const CommonOptions& options, const NetworkArguments& arguments)
{
    bool isAnyGiven = arguments.isLoginRequired.has_value();
    for (const auto& proxy : arguments.proxies)
        isAnyGiven = isAnyGiven || proxy;
    if (!isAnyGiven)
        throw Failure("tell at least one of --http, --https, --ftp and --login-required",
                      status::usage);
    return ask(options, "proxies", [&](MessageWriter& message) {
        for (std::size_t i = 0; i < proxyOptions.size(); ++i) {
            if (!arguments.proxies[i])
                continue;
            const Proxy proxy = parseProxy(*arguments.proxies[i]).value_or(Proxy());
            message.add(proxyOptions[i].host, proxy.host).add(proxyOptions[i].port, proxy.port);
        }
        if (arguments.isLoginRequired)
            message.add("httpProxyLoginRequired", *arguments.isLoginRequired);
    });
}

void addProxyCommand(CommandLine& commandLine, CLI::App& network,
                     const std::shared_ptr<NetworkArguments>& arguments)
{
    CLI::App& command = commandLine.add(
        network, "proxy", "Set the proxies; the others stay",
        [arguments](const CommonOptions& options) { return setProxies(options, *arguments); });
    for (std::size_t i = 0; i < proxyOptions.size(); ++i)
        command
            .add_option(proxyOptions[i].name, arguments->proxies[i], proxyOptions[i].description)
            ->type_name("HOST:PORT|none")
            ->check([](const std::string& text) {
                return parseProxy(text) ? std::string()
                                        : "'" + text +
                                              "' is no proxy; one is like proxy.example:8080, "
                                              "[::1]:8080 or none";
            });
    command
        .add_option("--login-required", arguments->isLoginRequired,
                    "Whether the proxy for HTTP asks for a name and password: true or false")
        ->type_name("BOOLEAN");
}

} // namespace

void addNetworkCommands(CommandLine& commandLine)
{
    const auto arguments = std::make_shared<NetworkArguments>();
    CLI::App& network =
        commandLine.add(commandLine.root(), "network", "The network; alone: shows it", show);
    const auto nothing = [](MessageWriter&) {};
    commandLine.add(
        network, "up", "An external network can be reached",
        [nothing](const CommonOptions& options) { return ask(options, "up", nothing); });
    commandLine.add(
        network, "down", "No external network can be reached",
        [nothing](const CommonOptions& options) { return ask(options, "down", nothing); });

    CLI::App& flap = commandLine.add(network, "flap", "Let the network come and go in a burst",
                                     [arguments](const CommonOptions& options) {
                                         return ask(options, "flap", [&](MessageWriter& message) {
                                             message.add("count", arguments->count);
                                         });
                                     });
    flap.add_option("--count", arguments->count, "How often it changes (default: 2)")
        ->type_name("N")
        ->check(wholeNumber(1, 100'000));
    flap.footer("Each change is told to the applications, one by one.");

    addProxyCommand(commandLine, network, arguments);

    CLI::App& event = commandLine.add(network, "event", "Tell applications an event with any code",
                                      [arguments](const CommonOptions& options) {
                                          return ask(options, "event", [&](MessageWriter& message) {
                                              message.add("code", arguments->code);
                                          });
                                      });
    event.add_option("code", arguments->code, "The event's code")->type_name("CODE")->required();
}

} // namespace tamobox
