// SPDX-License-Identifier: Apache-2.0
#include "CatalogueFile.h"
#include "CommandLine.h"
#include "Commands.h"

#include "common/Failure.h"
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
    const auto isKept = std::make_shared<bool>(false);
    const auto catalogue = std::make_shared<std::string>();
    CLI::App& run = commandLine.add(
        commandLine.root(), "run",
        "Run an application in a box of its own: tamo-box run -- APPLICATION ARGUMENTS...",
        [isKept, catalogue](const CommonOptions& options) {
            if (options.rest.empty())
                throw Failure("an application is missing; it comes after '--', as in "
                              "'tamo-box run -- APPLICATION'");
            const std::string text =
                catalogue->empty() ? std::string() : readCatalogueFile(*catalogue);
            Launcher launcher(
                {options.box, options.rest, *isKept, text},
                options.json ? Launcher::ReadyHandler(announce) : [](const std::string&, int) {});
            return launcher.run();
        });
    run.add_flag("--keep", *isKept,
                 "Keep what was bought, and the clock, for the next box of this name");
    run.add_option("--catalogue", *catalogue, "What can be bought (default: the box's own)")
        ->type_name("FILE");
    commandLine.takeRest(run, "the application comes after '--'");
    run.footer(
        "Ends with the application's exit status. With --json, a line on standard error says "
        "when the application runs.");
}

} // namespace tamobox
