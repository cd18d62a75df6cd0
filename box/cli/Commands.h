// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_COMMANDS_H
#define TAMOBOX_COMMANDS_H

namespace tamobox {

class CommandLine;

// The commands, one group a file. To add one: its file, its line here and its line in main.cpp.
void addRunCommand(CommandLine& commandLine);
void addExecCommands(CommandLine& commandLine); // exec, shell
void addDoctorCommand(CommandLine& commandLine);
void addStatusCommand(CommandLine& commandLine);
void addPpsCommands(CommandLine& commandLine);
void addBatteryCommands(CommandLine& commandLine);
void addNavigatorCommands(CommandLine& commandLine);
void addRotateCommand(CommandLine& commandLine);
void addDisplayCommands(CommandLine& commandLine);
void addNetworkCommands(CommandLine& commandLine);
void addLedCommand(CommandLine& commandLine);
void addNotificationCommands(CommandLine& commandLine);
void addPaymentCommands(CommandLine& commandLine);
void addClockCommands(CommandLine& commandLine);

} // namespace tamobox

#endif
