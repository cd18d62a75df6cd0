// SPDX-License-Identifier: Apache-2.0
// tamo-box: starts a phone in a box and plays its world from the command line.
#include "CommandLine.h"
#include "Commands.h"

#include "common/DescriptorTable.h"

int main(int argc, char** argv)
{
    using namespace tamobox;
    fillStandardDescriptors();
    CommandLine commandLine;
    for (const auto addCommands :
         {addRunCommand, addExecCommands, addDoctorCommand, addStatusCommand, addPpsCommands,
          addBatteryCommands, addDisplayCommands, addNetworkCommands, addNavigatorCommands,
          addRotateCommand, addLedCommand, addNotificationCommands, addPaymentCommands,
          addClockCommands})
        addCommands(commandLine);
    return commandLine.run(argc, argv);
}
