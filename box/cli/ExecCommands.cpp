// SPDX-License-Identifier: Apache-2.0
#include "CommandLine.h"
#include "Commands.h"
#include "GuestProgram.h"

#include "common/Failure.h"

#include <cstdlib>

namespace tamobox {

namespace {

std::string usersShell()
{
    const char* const shell = std::getenv("SHELL");
    return shell == nullptr || *shell == '\0' ? "/bin/sh" : shell;
}

} // namespace

void addExecCommands(CommandLine& commandLine)
{
    CLI::App& exec = commandLine.add(
        commandLine.root(), "exec",
        "Run a command beside the application, in its box: tamo-box exec -- COMMAND ARGUMENTS...",
        [](const CommonOptions& options) {
            if (options.rest.empty())
                throw Failure("a command is missing; it comes after '--', as in "
                              "'tamo-box exec -- COMMAND'");
            return runGuest(options.box, options.rest);
        });
    commandLine.takeRest(exec, "the command comes after '--'");
    exec.footer("Ends with the command's exit status.");

    commandLine.add(
        commandLine.root(), "shell", "A shell beside the application, in its box",
        [](const CommonOptions& options) { return runGuest(options.box, {usersShell()}); });
}

} // namespace tamobox
