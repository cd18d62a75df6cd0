// SPDX-License-Identifier: Apache-2.0
#include "CommandLine.h"
#include "Commands.h"
#include "common/Json.h"

#include "launcher/Launcher.h"

#include <cstdio>
#include <memory>

namespace tamobox {

namespace {

void announce(const std::string& box, int pid)
{
    Json json;
    json.startObject().key("box").string(box).key("application").startObject();
    json.key("pid").number(pid).endObject().endObject();
    std::fprintf(stderr, "%s\n", json.text().c_str());
}

} // namespace

void addRunCommand(CommandLine& commandLine)
{
    const auto command = std::make_shared<std::vector<std::string>>();
    CLI::App& run = commandLine.add(
        commandLine.root(), "run", "Run an application in a box of its own",
        [command](const CommonOptions& options) {
            Launcher launcher(
                options.box, *command,
                options.json ? Launcher::ReadyHandler(announce) : [](const std::string&, int) {});
            return launcher.run();
        });
    run.add_option("command", *command, "The application and its arguments, after '--'")
        ->type_name("APPLICATION ARGUMENTS...")
        ->required();
    run.footer(
        "Ends with the application's exit status. With --json, a line on standard error says "
        "when the application runs.");
}

} // namespace tamobox
