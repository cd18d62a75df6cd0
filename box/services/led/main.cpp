// SPDX-License-Identifier: Apache-2.0
#include "LedService.h"

#include "services/ServiceProgram.h"

int main(int argc, char** argv)
{
    return tamobox::runService<tamobox::LedService>(argc, argv, "led-service");
}
