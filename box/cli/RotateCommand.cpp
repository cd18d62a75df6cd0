// SPDX-License-Identifier: Apache-2.0
#include "BoxEntrance.h"
#include "CommandLine.h"
#include "Commands.h"
#include "ControlClient.h"
#include "DurationOption.h"
#include "NavigatorRequest.h"

#include "common/Json.h"

#include <cstdio>

namespace tamobox {

namespace {

struct RotateArguments
{
    int angle = 0;
    std::chrono::milliseconds limit = std::chrono::seconds(2);
    std::shared_ptr<NavigatorTarget> target;
};

void printJson(const MessageReader& report)
{
    Json json;
    const auto number = [&](const char* name) {
        json.key(name);
        if (const auto whole = report.integer(name))
            json.number(*whole);
        else if (const auto value = report.number(name))
            json.number(*value);
        else
            json.null();
    };
    const auto text = [&](const char* name) {
        json.key(name).string(report.string(name).value_or(""));
    };
    json.startObject();
    number("angle");
    text("group");
    text("check");
    number("checkTime");
    text("done");
    number("doneTime");
    json.key("turned").boolean(report.boolean("turned").value_or(false));
    number("rotation");
    std::printf("%s\n", json.endObject().text().c_str());
}

void printStep(const char* name, const std::string& outcome, std::optional<double> milliseconds)
{
    std::printf("%-12s %s", name, outcome.c_str());
    if (milliseconds)
        std::printf("  %.1f ms", *milliseconds);
    std::printf("\n");
}

void printText(const MessageReader& report)
{
    const std::string group = report.string("group").value_or("");
    const std::optional<int> rotation = report.integer("rotation");
    const bool turned = report.boolean("turned").value_or(false);
    printStep("application", group.empty() ? "none in the foreground" : group, std::nullopt);
    printStep("check", report.string("check").value_or(""), report.number("checkTime"));
    printStep("display",
              (turned ? "turned to " : "stays at ") +
                  (rotation ? std::to_string(*rotation) : "an unknown rotation"),
              std::nullopt);
    printStep("orientation", report.string("done").value_or(""), report.number("doneTime"));
}

int rotate(const CommonOptions& options, const RotateArguments& arguments)
{
    enterBox(options.box, Depth::Files);
    ControlClient(navigatorMailbox)
        .ask(
            "rotate",
            [&](MessageWriter& message) {
                arguments.target->writeTo(message);
                message.add("angle", arguments.angle)
                    .add("limit", static_cast<int>(arguments.limit.count()));
            },
            [&](MessageReader& report) {
                if (!report.has("check"))
                    return;
                if (options.json)
                    printJson(report);
                else
                    printText(report);
                std::fflush(stdout);
            });
    return 0;
}

} // namespace

void addRotateCommand(CommandLine& commandLine)
{
    const auto arguments = std::make_shared<RotateArguments>();
    CLI::App& command = commandLine.add(
        commandLine.root(), "rotate", "Turn the device",
        [arguments](const CommonOptions& options) { return rotate(options, *arguments); });
    command.add_option("angle", arguments->angle, "0, 90, 180 or 270")
        ->type_name("ANGLE")
        ->required()
        ->check(CLI::IsMember({"0", "90", "180", "270"}));
    addDurationOption(command, "--limit", arguments->limit,
                      "How long to wait for each of the application's answers (default: 2s)");
    arguments->target = addNavigatorTarget(command);
    command.footer("Prints what the application answered, and how long it took.");
}

} // namespace tamobox
