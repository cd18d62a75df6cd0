// SPDX-License-Identifier: Apache-2.0
#include "BoxEntrance.h"
#include "CommandLine.h"
#include "Commands.h"
#include "DisplayText.h"

#include <cstdio>

namespace tamobox {

namespace {

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

} // namespace

void addDisplayCommands(CommandLine& commandLine)
{
    CLI::App& display = commandLine.addGroup(commandLine.root(), "display", "The displays");
    commandLine.add(display, "list", "Show the displays", listDisplays)
        .footer("Pixels and millimetres are those at rotation 0.");
}

} // namespace tamobox
