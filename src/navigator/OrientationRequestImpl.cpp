// SPDX-License-Identifier: Apache-2.0
#include "OrientationRequestImpl.h"

#include "core/Log.h"

#include <tamomock/ZelApi.h>
#include <tamomock/ZelNavigator.h>

#include <cerrno>

namespace tamo {

OrientationRequestImpl::OrientationRequestImpl(const QByteArray& id)
    : m_api(tamomock::ZelApi::instance()), m_id(id)
{
}

void OrientationRequestImpl::done()
{
    const std::lock_guard lock(m_mutex);
    if (m_isDone)
        return;
    m_isDone = true;
    detail::logLine("OrientationRequestImpl::done - id=", m_id);
    errno = 0;
    if (m_api->navigator()->doneOrientationId(m_id.constData()) != 0)
        detail::logLine("OrientationRequestImpl::done - exlpode");
}

} // namespace tamo
