// SPDX-License-Identifier: Apache-2.0
// network-service: the network of the phone in a box.
#include "NetworkService.h"

#include "services/ServiceProgram.h"

int main(int argc, char** argv)
{
    return tamobox::runService<tamobox::NetworkService>(argc, argv, "network-service");
}
