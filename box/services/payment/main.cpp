// SPDX-License-Identifier: Apache-2.0
#include "PaymentCommands.h"

#include "services/ServiceProgram.h"

int main(int argc, char** argv)
{
    return tamobox::runService<tamobox::PaymentCommands>(argc, argv, "payment-service");
}
