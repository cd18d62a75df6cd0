// SPDX-License-Identifier: Apache-2.0
#include "ApplicationList.h"
#include "BoxEntrance.h"
#include "CommandLine.h"
#include "Commands.h"
#include "ControlClient.h"
#include "ExitCommand.h"
#include "NavigatorRequest.h"

#include "common/Json.h"

#include <array>
#include <cstdio>

namespace tamobox {

namespace {

using Fill = std::function<void(MessageWriter&)>;

struct PlainCommand
{
    const char* name;    ///< on the command line
    const char* message; ///< in the request
    const char* description;
};

// Those that take nothing but their target.
constexpr std::array<PlainCommand, 11> plainCommands = {{
    {"fullscreen", "fullscreen", "Make it full screen, in the foreground"},
    {"thumbnail", "thumbnail", "Make it a thumbnail"},
    {"invisible", "invisible", "Make it invisible"},
    {"active", "active", "Give it the input"},
    {"inactive", "inactive", "Take the input from it"},
    {"swipe-down", "swipeDown", "Swipe down from the upper edge"},
    {"swipe-start", "swipeStart", "Begin to swipe down"},
    {"back", "back", "Go back"},
    {"low-memory", "lowMemory", "Be short of memory (default: tells every application)"},
    {"lock", "lock", "Lock the screen"},
    {"unlock", "unlock", "Unlock the screen"},
}};

struct EventArguments
{
    int code = 0;
    std::optional<int> state;
    std::optional<int> angle;
    std::optional<std::string> data;
    std::optional<std::string> id;
    std::optional<std::string> err;
    std::optional<std::string> windowGroup;
};

int show(const CommonOptions& options)
{
    enterBox(options.box, Depth::Files);
    const ApplicationList list = ApplicationList::read();
    std::printf("%s", options.json ? (list.toJson() + '\n').c_str() : list.toText().c_str());
    return 0;
}

// Asks for a command; as JSON it prints which applications were told.
int ask(const CommonOptions& options, const char* message, const NavigatorTarget& target,
        const Fill& fill)
{
    enterBox(options.box, Depth::Files);
    Json told;
    told.startObject().key("applications").startArray();
    ControlClient(navigatorMailbox)
        .ask(
            message,
            [&](MessageWriter& arguments) {
                target.writeTo(arguments);
                fill(arguments);
            },
            [&](MessageReader& report) {
                if (const auto group = report.string("group"))
                    told.string(*group);
            });
    if (options.json)
        std::printf("%s\n", told.endArray().endObject().text().c_str());
    return 0;
}

void addPlainCommand(CommandLine& commandLine, CLI::App& navigator, const PlainCommand& plain)
{
    const auto target = std::make_shared<std::shared_ptr<NavigatorTarget>>();
    CLI::App& command =
        commandLine.add(navigator, plain.name, plain.description,
                        [target, message = plain.message](const CommonOptions& options) {
                            return ask(options, message, **target, [](MessageWriter&) {});
                        });
    *target = addNavigatorTarget(command);
}

void addInvokeCommand(CommandLine& commandLine, CLI::App& navigator)
{
    const auto target = std::make_shared<std::shared_ptr<NavigatorTarget>>();
    const auto url = std::make_shared<std::string>();
    CLI::App& command = commandLine.add(
        navigator, "invoke", "Have it open a URL", [target, url](const CommonOptions& options) {
            return ask(options, "invoke", **target,
                       [&](MessageWriter& arguments) { arguments.add("url", *url); });
        });
    command.add_option("url", *url, "The URL")
        ->type_name("URL")
        ->required()
        ->check([](const std::string& text) {
            return text.empty() ? "the URL must not be empty" : std::string();
        });
    *target = addNavigatorTarget(command);
}

void writeEvent(MessageWriter& message, const EventArguments& event)
{
    const auto addIfSet = [&](const char* name, const auto& value) {
        if (value)
            message.add(name, *value);
    };
    message.add("code", event.code);
    addIfSet("state", event.state);
    addIfSet("angle", event.angle);
    addIfSet("data", event.data);
    addIfSet("id", event.id);
    addIfSet("err", event.err);
    addIfSet("windowGroup", event.windowGroup);
}

void addEventCommand(CommandLine& commandLine, CLI::App& navigator)
{
    const auto target = std::make_shared<std::shared_ptr<NavigatorTarget>>();
    const auto event = std::make_shared<EventArguments>();
    CLI::App& command =
        commandLine.add(navigator, "event", "Tell it any event as it stands",
                        [target, event](const CommonOptions& options) {
                            return ask(options, "event", **target, [&](MessageWriter& arguments) {
                                writeEvent(arguments, *event);
                            });
                        });
    command.add_option("code", event->code, "The event's code")->type_name("CODE")->required();
    command.add_option("--state", event->state, "Window state")->type_name("N");
    command.add_option("--angle", event->angle, "Angle")->type_name("N");
    command.add_option("--data", event->data, "Data")->type_name("TEXT");
    command.add_option("--id", event->id, "Id")->type_name("TEXT");
    command.add_option("--err", event->err, "Error text")->type_name("TEXT");
    command.add_option("--window-group", event->windowGroup, "Window group")->type_name("TEXT");
    *target = addNavigatorTarget(command);
}

} // namespace

void addNavigatorCommands(CommandLine& commandLine)
{
    CLI::App& navigator = commandLine.add(commandLine.root(), "navigator",
                                          "The navigator; alone: shows the applications", show);
    for (const PlainCommand& plain : plainCommands)
        addPlainCommand(commandLine, navigator, plain);
    addExitCommand(commandLine, navigator);
    addInvokeCommand(commandLine, navigator);
    addEventCommand(commandLine, navigator);
}

} // namespace tamobox
