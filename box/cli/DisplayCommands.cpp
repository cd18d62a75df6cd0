// SPDX-License-Identifier: Apache-2.0
#include "BoxEntrance.h"
#include "CommandLine.h"
#include "Commands.h"
#include "ControlClient.h"
#include "DisplayText.h"
#include "ExtentOption.h"
#include "NumberCheck.h"

#include <algorithm>
#include <cstdio>
#include <memory>

namespace tamobox {

namespace {

constexpr const char* displayMailbox = "box/display";

struct AttachArguments
{
    int id = 0;
    std::optional<Extent> size;
    std::optional<Extent> physicalSize;
    std::optional<std::string> name;
    std::optional<std::string> type;
    std::optional<int> rotation;
    std::optional<bool> isDetachable;
};

int listDisplays(const CommonOptions& options)
{
    enterBox(options.box, Depth::Files);
    const DisplayList list = DisplayList::published();
    if (options.json)
        std::printf("{\"displays\":%s}\n", displaysToJson(list).c_str());
    else
        std::printf("%s", displayTable(list).c_str());
    return 0;
}

void printJson(const CommonOptions& options, int id)
{
    if (!options.json)
        return;
    const DisplayList list = DisplayList::published();
    for (const Display& display : list.displays())
        if (display.id == id)
            std::printf("%s\n", displayToJson(display).c_str());
}

template<typename Value>
void addIfGiven(MessageWriter& message, const char* name, const std::optional<Value>& value)
{
    if (value)
        message.add(name, *value);
}

int attachDisplay(const CommonOptions& options, const AttachArguments& arguments)
{
    enterBox(options.box, Depth::Files);
    ControlClient(displayMailbox).ask("attach", [&](MessageWriter& message) {
        message.add("id", arguments.id);
        if (arguments.size)
            message.add("width", arguments.size->width).add("height", arguments.size->height);
        if (arguments.physicalSize)
            message.add("physicalWidth", arguments.physicalSize->width)
                .add("physicalHeight", arguments.physicalSize->height);
        addIfGiven(message, "name", arguments.name);
        addIfGiven(message, "type", arguments.type);
        addIfGiven(message, "rotation", arguments.rotation);
        addIfGiven(message, "detachable", arguments.isDetachable);
    });
    printJson(options, arguments.id);
    return 0;
}

int detachDisplay(const CommonOptions& options, int id)
{
    enterBox(options.box, Depth::Files);
    ControlClient(displayMailbox).ask("detach", [&](MessageWriter& message) {
        message.add("id", id);
    });
    printJson(options, id);
    return 0;
}

void addId(CLI::App& command, int& id)
{
    command.add_option("id", id, "The display's number, above 0")
        ->type_name("ID")
        ->required()
        ->check(wholeNumber(1));
}

void addAttachCommand(CommandLine& commandLine, CLI::App& group)
{
    const auto arguments = std::make_shared<AttachArguments>();
    CLI::App& command = commandLine.add(
        group, "attach", "Attach a display",
        [arguments](const CommonOptions& options) { return attachDisplay(options, *arguments); });
    addId(command, arguments->id);
    addExtentOption(command, "--size", arguments->size, 1, "Its pixels (a new one's: 1920x1080)");
    addExtentOption(command, "--physical-size", arguments->physicalSize, 0,
                    "Its millimetres; 0: unknown (a new one's: 0x0)");
    command.add_option("--name", arguments->name,
                       "Its name, at most 128 bytes (a new one's: Display and its number)");
    command.add_option("--type", arguments->type, "internal or external (a new one's: external)")
        ->type_name("TYPE")
        ->check(CLI::IsMember({"internal", "external"}));
    command
        .add_option("--rotation", arguments->rotation, "0, 90, 180 or 270 degrees (a new one's: 0)")
        ->type_name("ANGLE")
        ->check(CLI::IsMember({"0", "90", "180", "270"}));
    command
        .add_option("--detachable", arguments->isDetachable,
                    "Whether it can be detached, true or false (a new one's: true)")
        ->type_name("BOOL")
        ->check(CLI::IsMember({"true", "false"}));
    command.footer(
        "A display that was there before comes back as it was, but for what is given.\n"
        "Pixels and millimetres are those at rotation 0. Applications know the displays\n"
        "that there are when they make their tamo::device::DisplayManager, attached or\n"
        "not.");
}

void addDetachCommand(CommandLine& commandLine, CLI::App& group)
{
    const auto id = std::make_shared<int>(0);
    CLI::App& command =
        commandLine.add(group, "detach", "Detach a display; it stays in the list",
                        [id](const CommonOptions& options) { return detachDisplay(options, *id); });
    addId(command, *id);
}

} // namespace

void addDisplayCommands(CommandLine& commandLine)
{
    CLI::App& display = commandLine.addGroup(commandLine.root(), "display", "The displays");
    commandLine.add(display, "list", "Show the displays", listDisplays)
        .footer("Pixels and millimetres are those at rotation 0.");
    addAttachCommand(commandLine, display);
    addDetachCommand(commandLine, display);
}

} // namespace tamobox
