// SPDX-License-Identifier: Apache-2.0
#include "ExitCommand.h"

#include "BoxEntrance.h"
#include "CommandLine.h"
#include "ControlClient.h"
#include "DurationOption.h"
#include "NavigatorRequest.h"

#include "common/BoxSocket.h"
#include "common/Failure.h"
#include "common/Json.h"
#include "pps/ObjectFile.h"

#include <fcntl.h>

#include <cerrno>
#include <cstdio>
#include <thread>

namespace tamobox {

namespace {

using Clock = std::chrono::steady_clock;

constexpr auto endOfBoxLimit = std::chrono::seconds(2);
constexpr auto retryPause = std::chrono::milliseconds(10);

/** How an application left. */
struct Leave
{
    std::string group = {}; // empty: unknown
    bool byItself = true;
    int milliseconds = -1; // -1: the box ended before it was told
};

bool boxEnds(const std::string& name)
{
    const auto deadline = Clock::now() + endOfBoxLimit;
    while (Clock::now() < deadline) {
        try {
            boxsocket::connect(name);
        } catch (const Failure&) {
            return true;
        }
        std::this_thread::sleep_for(retryPause);
    }
    return false;
}

/** The application that a command means, as far as that is known before it is asked. */
std::string meantGroup(const NavigatorTarget& target)
{
    if (!target.group.empty())
        return target.group;
    const auto text = ObjectFile("services/navigator/applications", O_RDONLY).read();
    if (!text)
        return {};
    MessageReader message(*text);
    return message.enter("@applications") ? message.string("foreground").value_or("") : "";
}

void askToLeave(const std::string& box, const NavigatorTarget& target,
                std::chrono::milliseconds grace, Leave& leave)
{
    // The box ends with its application, and may do so before anything of the answer is read.
    leave.group = meantGroup(target);
    ControlClient client(navigatorMailbox);
    try {
        client.ask(
            "exit",
            [&](MessageWriter& arguments) {
                target.writeTo(arguments);
                arguments.add("grace", static_cast<int>(grace.count()));
            },
            [&](MessageReader& report) {
                leave.group = report.string("group").value_or(leave.group);
                leave.milliseconds = report.integer("milliseconds").value_or(leave.milliseconds);
                if (report.has("left"))
                    leave.byItself = report.boolean("left").value_or(true);
                if (!leave.byItself)
                    client.tell("overdueWasRead");
            });
    } catch (const ObjectFailure& failure) {
        const bool isGone = failure.error() == ENOTCONN || failure.error() == ECONNABORTED;
        if (!isGone || !boxEnds(box))
            throw;
    }
}

void print(const CommonOptions& options, const Leave& leave)
{
    if (options.json)
        std::printf("%s\n", Json()
                                .startObject()
                                .key("group")
                                .string(leave.group)
                                .key("left")
                                .boolean(leave.byItself)
                                .key("milliseconds")
                                .number(leave.milliseconds)
                                .endObject()
                                .text()
                                .c_str());
    else
        std::printf(leave.byItself ? "%s left after %d ms\n"
                                   : "%s did not leave within %d ms and was killed\n",
                    leave.group.empty() ? "the application" : leave.group.c_str(),
                    leave.milliseconds);
}

} // namespace

void addExitCommand(CommandLine& commandLine, CLI::App& navigator)
{
    const auto target = std::make_shared<std::shared_ptr<NavigatorTarget>>();
    const auto grace = std::make_shared<std::chrono::milliseconds>(std::chrono::seconds(3));
    CLI::App& command = commandLine.add(
        navigator, "exit", "Have it leave, and wait until it has",
        [=](const CommonOptions& options) {
            const EnteredBox box = enterBox(options.box, Depth::Files);
            const auto begin = Clock::now();
            Leave leave;
            askToLeave(box.name, **target, *grace, leave);
            if (leave.milliseconds == -1)
                leave.milliseconds = static_cast<int>(
                    std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - begin)
                        .count());
            print(options, leave);
            return 0;
        });
    addDurationOption(command, "--grace", *grace,
                      "How long it may take before it is killed (default: 3s)");
    *target = addNavigatorTarget(command);
    command.footer(
        "An application that asks for more time gets it. Interrupted, the command leaves "
        "the application alone.");
}

} // namespace tamobox
