// SPDX-License-Identifier: Apache-2.0
#include "NotificationMessages.h"

namespace tamo {
namespace platform {

const NotificationMessages& notificationMessages()
{
    static const auto& messages = *new NotificationMessages;
    return messages;
}

} // namespace platform
} // namespace tamo
