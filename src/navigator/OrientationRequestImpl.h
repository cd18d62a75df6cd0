// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_NAVIGATOR_ORIENTATIONREQUESTIMPL_H
#define TAMO_NAVIGATOR_ORIENTATIONREQUESTIMPL_H

#include <tamo/OrientationHandler.h>

#include <QtCore/QByteArray>

#include <mutex>

namespace tamomock {
class ZelApi;
}

namespace tamo {

/** One request of the navigator's, answered at most once. */
class OrientationRequestImpl final : public OrientationHandler::OrientationRequest
{
public:
    /** @param id the navigator's for the request */
    explicit OrientationRequestImpl(const QByteArray& id);

    void done() override;

private:
    tamomock::ZelApi* const m_api;
    std::mutex m_mutex; // guards m_isDone; held while the navigator is told
    bool m_isDone = false;
    const QByteArray m_id;
};

} // namespace tamo

#endif
