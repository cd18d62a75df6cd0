// SPDX-License-Identifier: Apache-2.0
// device-service: what the phone in a box is.
#include "DeviceService.h"

#include "services/ServiceProgram.h"

int main(int argc, char** argv)
{
    return tamobox::runService<tamobox::DeviceService>(argc, argv, "device-service");
}
