// SPDX-License-Identifier: Apache-2.0
#include "BoxEntrance.h"
#include "CommandLine.h"
#include "Commands.h"
#include "ControlClient.h"
#include "NotificationTable.h"

#include "common/Failure.h"
#include "common/Json.h"

#include <array>
#include <cstdio>
#include <memory>

namespace tamobox {

namespace {

constexpr const char* notificationMailbox = "box/notification";

/** Which notification a command means, and which of its choices. */
struct NotificationArguments
{
    std::string id;
    std::optional<int> process;
    std::optional<std::string> label;
    std::optional<std::string> choice;
};

struct PlainCommand
{
    const char* name; ///< on the command line, and in the request
    const char* description;
};

// Those that take nothing but the notification.
constexpr std::array<PlainCommand, 3> plainCommands = {{
    {"open", "Open it; it stays, as opened"},
    {"expire", "Let it expire now, which removes it"},
    {"acknowledge", "Acknowledge it, without a choice, which removes it"},
}};

int list(const CommonOptions& options)
{
    enterBox(options.box, Depth::Files);
    // What was posted before the command is in the list then.
    ControlClient(notificationMailbox).ask("list", [](MessageWriter&) {});
    const std::vector<Notification> notifications = publishedNotifications();
    const std::string text =
        options.json ? notificationsToJson(notifications) + '\n' : notificationTable(notifications);
    std::fwrite(text.data(), 1, text.size(), stdout);
    return 0;
}

// Asks for an answer; as JSON it prints which notification was meant.
int answer(const CommonOptions& options, const char* command,
           const NotificationArguments& arguments)
{
    enterBox(options.box, Depth::Files);
    Json meant;
    ControlClient(notificationMailbox)
        .ask(
            command,
            [&](MessageWriter& message) {
                message.add("id", arguments.id);
                if (arguments.process)
                    message.add("pid", *arguments.process);
                if (arguments.label)
                    message.add("label", *arguments.label);
                if (arguments.choice)
                    message.add("choice", *arguments.choice);
            },
            [&](MessageReader& report) {
                meant.startObject().key("id").string(report.string("id").value_or(""));
                meant.key("pid").number(report.integer("pid").value_or(0)).endObject();
            });
    if (options.json)
        std::printf("%s\n", meant.text().c_str());
    return 0;
}

void addTarget(CLI::App& command, NotificationArguments& arguments)
{
    command
        .add_option("id", arguments.id, "Its id, or the beginning of it, with or without the brace")
        ->type_name("ID")
        ->required();
    command
        .add_option("--application", arguments.process,
                    "Whose it is, where several applications have the same id")
        ->type_name("PID");
}

void addPlainCommand(CommandLine& commandLine, CLI::App& notification, const PlainCommand& plain)
{
    const auto arguments = std::make_shared<NotificationArguments>();
    CLI::App& command =
        commandLine.add(notification, plain.name, plain.description,
                        [arguments, name = plain.name](const CommonOptions& options) {
                            return answer(options, name, *arguments);
                        });
    addTarget(command, *arguments);
}

int choose(const CommonOptions& options, NotificationArguments& arguments)
{
    if (options.rest.size() > (arguments.label ? 0 : 1))
        throw Failure("there is more than one label; put one with spaces in quotes", status::usage);
    if (!options.rest.empty())
        arguments.label = options.rest[0];
    if (!arguments.label && !arguments.choice)
        throw Failure("the choice is missing: give its label, or --choice-id", status::usage);
    return answer(options, "choose", arguments);
}

void addChooseCommand(CommandLine& commandLine, CLI::App& notification)
{
    const auto arguments = std::make_shared<NotificationArguments>();
    CLI::App& command = commandLine.add(
        notification, "choose", "Acknowledge it with one of its choices, which removes it",
        [arguments](const CommonOptions& options) { return choose(options, *arguments); });
    addTarget(command, *arguments);
    command.add_option("label", arguments->label, "The choice's label")->type_name("LABEL");
    command
        .add_option("--choice-id", arguments->choice,
                    "Its id, or the beginning of it, where several have the same label")
        ->type_name("ID");
    commandLine.takeRest(command, "a label that begins with '-' comes after '--'");
}

} // namespace

void addNotificationCommands(CommandLine& commandLine)
{
    CLI::App& notification = commandLine.add(commandLine.root(), "notification",
                                             "Notifications; alone: lists them", list);
    commandLine.add(notification, "list", "List them", list)
        .footer("With --json: an array of objects with id, text, choices and the rest.");
    for (const PlainCommand& plain : plainCommands)
        addPlainCommand(commandLine, notification, plain);
    addChooseCommand(commandLine, notification);
}

} // namespace tamobox
