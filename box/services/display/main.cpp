// SPDX-License-Identifier: Apache-2.0
// display-service: the displays of the phone in a box.
#include "DisplayService.h"

#include "services/ServiceProgram.h"

int main(int argc, char** argv)
{
    return tamobox::runService<tamobox::DisplayService>(argc, argv, "display-service");
}
