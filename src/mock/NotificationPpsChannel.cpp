// SPDX-License-Identifier: Apache-2.0
#include <tamomock/NotificationPpsChannel.h>

#include "ChannelObjects.h"
#include "CurrentChannel.h"

namespace tamomock {

using tamo::PpsObject;

namespace {

struct Current : detail::CurrentChannel<NotificationPpsChannel>
{
    QString path;
};

Current& current()
{
    // Never destroyed: threads may use notifications while the process ends.
    static auto& instance = *new Current;
    return instance;
}

} // namespace

NotificationPpsChannel::NotificationPpsChannel()
{
    PpsObject* const control =
        detail::openObject(path(), PpsObject::Publish | PpsObject::Subscribe, this);
    detail::receiveFrom(control, this);
    detail::sendTo(control, this);
}

NotificationPpsChannel::NotificationPpsChannel(WithoutPps) {}

NotificationPpsChannel::~NotificationPpsChannel() = default;

QSharedPointer<NotificationPpsChannel> NotificationPpsChannel::channel()
{
    return current().get();
}

void NotificationPpsChannel::setChannel(const QSharedPointer<NotificationPpsChannel>& channel)
{
    current().set(channel);
}

void NotificationPpsChannel::resetChannel()
{
    current().reset();
}

QString NotificationPpsChannel::path()
{
    const QMutexLocker locker(&current().mutex);
    if (current().path.isNull())
        current().path = QStringLiteral("/pps/services/notification/control");
    return current().path;
}

void NotificationPpsChannel::setPath(const QString& path)
{
    const QMutexLocker locker(&current().mutex);
    current().path = path;
}

void NotificationPpsChannel::resetPath()
{
    setPath(QString());
}

} // namespace tamomock
