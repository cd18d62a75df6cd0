// SPDX-License-Identifier: Apache-2.0
#include "BoxEntrance.h"
#include "CommandLine.h"
#include "Commands.h"
#include "ControlClient.h"
#include "MessageJson.h"
#include "TextTable.h"

#include "common/Duration.h"

#include <cstdio>
#include <memory>

namespace tamobox {

namespace {

constexpr const char* paymentMailbox = "box/payment";
constexpr auto longestAdvance = std::chrono::hours(24 * 36'500);

std::string advancedText(double milliseconds)
{
    const auto seconds = static_cast<long long>(milliseconds / 1000);
    std::string text = std::to_string(seconds / 86'400) + "d";
    if (const long long rest = seconds % 86'400; rest != 0)
        text += ' ' + std::to_string(rest) + 's';
    return text;
}

int ask(const CommonOptions& options, const char* command,
        const std::function<void(MessageWriter&)>& fill)
{
    enterBox(options.box, Depth::Files);
    std::string text;
    ControlClient(paymentMailbox).ask(command, fill, [&](MessageReader& report) {
        text = options.json
                   ? membersToJson(report)
                   : localTimeText(static_cast<std::int64_t>(report.number("now").value_or(0))) +
                         " (advanced by " + advancedText(report.number("advanced").value_or(0)) +
                         ')';
    });
    std::printf("%s\n", text.c_str());
    return 0;
}

} // namespace

void addClockCommands(CommandLine& commandLine)
{
    CLI::App& clock = commandLine.add(
        commandLine.root(), "clock", "The clock that subscriptions run by; alone: shows it",
        [](const CommonOptions& options) { return ask(options, "clock", [](MessageWriter&) {}); });
    const auto by = std::make_shared<std::string>();
    CLI::App& advance =
        commandLine.add(clock, "advance", "Move it forward", [by](const CommonOptions& options) {
            return ask(options, "advance", [&](MessageWriter& message) {
                message.add("milliseconds",
                            static_cast<double>(parseDuration(*by, longestAdvance)->count()));
            });
        });
    advance.add_option("duration", *by, "How far")
        ->type_name("DURATION")
        ->required()
        ->check([](const std::string& text) {
            return parseDuration(text, longestAdvance)
                       ? std::string()
                       : "'" + text +
                             "' is no duration; durations are like 30d, 12h, 2m or 10s, "
                             "at most 36500d";
        });
    advance.footer("Only the payment system has this clock; the machine's time stays. With --json: "
                   "an object of now and advanced, in milliseconds.");
}

} // namespace tamobox
