// SPDX-License-Identifier: Apache-2.0
#include "BatteryState.h"
#include "BoxEntrance.h"
#include "CommandLine.h"
#include "Commands.h"
#include "ControlClient.h"
#include "DurationOption.h"
#include "NumberCheck.h"

#include "common/Json.h"

#include <cstdio>
#include <memory>

namespace tamobox {

namespace {

constexpr const char* powerMailbox = "box/power";

struct BatteryArguments
{
    int level = 0;
    std::string charger;
    std::optional<int> from;
    int to = 0;
    std::chrono::milliseconds duration = {};
};

int showBattery(const CommonOptions& options)
{
    enterBox(options.box, Depth::Files);
    const BatteryState state = BatteryState::read();
    if (options.json)
        std::printf("%s\n", state.toJson().c_str());
    else
        std::printf("level    %s\ncharger  %s\n", state.levelText().c_str(),
                    state.chargerText().c_str());
    return 0;
}

void printJson(const CommonOptions& options, const char* key, int value)
{
    if (options.json)
        std::printf("%s\n", Json().startObject().key(key).number(value).endObject().text().c_str());
}

int setLevel(const CommonOptions& options, int level)
{
    enterBox(options.box, Depth::Files);
    ControlClient(powerMailbox).ask("level", [&](MessageWriter& message) {
        message.add("level", level);
    });
    printJson(options, "level", level);
    return 0;
}

int setCharger(const CommonOptions& options, const std::string& state)
{
    enterBox(options.box, Depth::Files);
    ControlClient(powerMailbox).ask("charger", [&](MessageWriter& message) {
        message.add("state", state);
    });
    if (options.json)
        std::printf("%s\n",
                    Json().startObject().key("charger").string(state).endObject().text().c_str());
    return 0;
}

int drain(const CommonOptions& options, const BatteryArguments& arguments)
{
    enterBox(options.box, Depth::Files);
    int shownLevel = -1;
    ControlClient(powerMailbox)
        .ask(
            "drain",
            [&](MessageWriter& message) {
                if (arguments.from)
                    message.add("from", *arguments.from);
                message.add("to", arguments.to)
                    .add("milliseconds", static_cast<int>(arguments.duration.count()));
            },
            [&](MessageReader& report) {
                const int level = report.integer("level").value_or(-1);
                if (level == std::exchange(shownLevel, level))
                    return;
                if (options.json)
                    printJson(options, "level", level);
                else
                    std::printf("%d %%\n", level);
                std::fflush(stdout);
            });
    return 0;
}

} // namespace

void addBatteryCommands(CommandLine& commandLine)
{
    const auto arguments = std::make_shared<BatteryArguments>();
    const auto percent = wholeNumber(0, 100);
    CLI::App& battery =
        commandLine.add(commandLine.root(), "battery", "The battery; alone: shows it", showBattery);

    CLI::App& level = commandLine.add(
        battery, "level", "Set the level",
        [arguments](const CommonOptions& options) { return setLevel(options, arguments->level); });
    level.add_option("level", arguments->level, "Percent, 0 to 100")
        ->type_name("N")
        ->required()
        ->check(percent);

    CLI::App& charger = commandLine.add(battery, "charger", "Set the charger's state",
                                        [arguments](const CommonOptions& options) {
                                            return setCharger(options, arguments->charger);
                                        });
    charger.add_option("state", arguments->charger, "NONE, CHARGE or PLUGGED")
        ->type_name("STATE")
        ->required()
        ->check(CLI::IsMember({"NONE", "CHARGE", "PLUGGED"}));

    CLI::App& drainCommand = commandLine.add(
        battery, "drain", "Let the level sink, one percent at a time",
        [arguments](const CommonOptions& options) { return drain(options, *arguments); });
    drainCommand
        .add_option("--from", arguments->from, "The first level (default: the present one)")
        ->type_name("N")
        ->check(percent);
    drainCommand.add_option("--to", arguments->to, "The last level")
        ->type_name("N")
        ->required()
        ->check(percent);
    addDurationOption(drainCommand, "--in", arguments->duration,
                      "How long it takes, like 10s or 2m")
        ->required();
    drainCommand.footer(
        "Prints each level and ends with the last; interrupted, it leaves the battery "
        "as it is then.");
}

} // namespace tamobox
