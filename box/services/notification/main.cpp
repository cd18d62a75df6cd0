// SPDX-License-Identifier: Apache-2.0
#include "NotificationService.h"

#include "services/ServiceProgram.h"

int main(int argc, char** argv)
{
    return tamobox::runService<tamobox::NotificationService>(argc, argv, "notification-service");
}
