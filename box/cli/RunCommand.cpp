// SPDX-License-Identifier: Apache-2.0
#include "CatalogueFile.h"
#include "CommandLine.h"
#include "Commands.h"

#include "common/Failure.h"
#include "common/Json.h"
#include "launcher/Launcher.h"
#include "services/ServiceTable.h"

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

std::string aService(const std::string& name)
{
    std::string names;
    for (const ServiceEntry& service : serviceTable()) {
        if (service.program == name)
            return {};
        names += (names.empty() ? "" : ", ") + service.program;
    }
    return "there is no service '" + name + "'; there are: " + names;
}

} // namespace

void addRunCommand(CommandLine& commandLine)
{
    const auto isKept = std::make_shared<bool>(false);
    const auto catalogue = std::make_shared<std::string>();
    const auto leftOut = std::make_shared<std::vector<std::string>>();
    CLI::App& run = commandLine.add(
        commandLine.root(), "run",
        "Run an application in a box of its own: tamo-box run -- APPLICATION ARGUMENTS...",
        [isKept, catalogue, leftOut](const CommonOptions& options) {
            if (options.rest.empty())
                throw Failure("an application is missing; it comes after '--', as in "
                              "'tamo-box run -- APPLICATION'");
            const std::string text =
                catalogue->empty() ? std::string() : readCatalogueFile(*catalogue);
            Launcher launcher(
                {options.box, options.rest, *isKept, text, *leftOut},
                options.json ? Launcher::ReadyHandler(announce) : [](const std::string&, int) {});
            return launcher.run();
        });
    run.add_flag("--keep", *isKept,
                 "Keep what was bought, and the clock, for the next box of this name");
    run.add_option("--catalogue", *catalogue, "What can be bought (default: the box's own)")
        ->type_name("FILE");
    run.add_option("--without", *leftOut,
                   "A service that is not started, though its objects are there; may be repeated")
        ->type_name("SERVICE")
        ->allow_extra_args(false)
        ->check(aService);
    commandLine.takeRest(run, "the application comes after '--'");
    run.footer(
        "Ends with the application's exit status. With --json, a line on standard error says "
        "when the application runs.");
}

} // namespace tamobox
