// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_EXITCOMMAND_H
#define TAMOBOX_EXITCOMMAND_H

#include <CLI/CLI.hpp>

namespace tamobox {

class CommandLine;

/** Adds `exit`, which waits until an application has left, to the navigator's commands. */
void addExitCommand(CommandLine& commandLine, CLI::App& navigator);

} // namespace tamobox

#endif
