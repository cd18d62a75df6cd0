// SPDX-License-Identifier: Apache-2.0
// navigator-service: the navigator of the phone in a box.
#include "NavigatorService.h"

#include "services/ServiceProgram.h"

int main(int argc, char** argv)
{
    return tamobox::runService<tamobox::NavigatorService>(argc, argv, "navigator-service");
}
