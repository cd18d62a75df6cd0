// SPDX-License-Identifier: Apache-2.0
#include <tamo/platform/NotificationException.h>

namespace tamo {
namespace platform {

NotificationException::NotificationException(const QString& message) : m_message(message.toLatin1())
{
}

// Out of line, as Exception's.
NotificationException::~NotificationException() = default;

const char* NotificationException::what() const noexcept
{
    return m_message.constData();
}

} // namespace platform
} // namespace tamo
