// SPDX-License-Identifier: Apache-2.0
#include "CommandLine.h"
#include "Commands.h"
#include "GuestProgram.h"

#include <cstdlib>
#include <memory>

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
    const auto command = std::make_shared<std::vector<std::string>>();
    CLI::App& exec = commandLine.add(
        commandLine.root(), "exec", "Run a command beside the application, in its box",
        [command](const CommonOptions& options) { return runGuest(options.box, *command); });
    exec.add_option("command", *command, "The command and its arguments, after '--'")
        ->type_name("COMMAND ARGUMENTS...")
        ->required();
    exec.footer("Ends with the command's exit status.");

    commandLine.add(
        commandLine.root(), "shell", "A shell beside the application, in its box",
        [](const CommonOptions& options) { return runGuest(options.box, {usersShell()}); });
}

} // namespace tamobox
