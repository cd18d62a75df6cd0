// SPDX-License-Identifier: Apache-2.0
// power-service: the battery and the charger of the phone in a box.
#include "PowerService.h"

#include "services/ServiceProgram.h"

int main(int argc, char** argv)
{
    return tamobox::runService<tamobox::PowerService>(argc, argv, "power-service");
}
