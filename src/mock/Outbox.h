// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_MOCK_OUTBOX_H
#define TAMO_MOCK_OUTBOX_H

#include <QtCore/QBasicTimer>
#include <QtCore/QByteArray>
#include <QtCore/QObject>
#include <QtCore/QQueue>
#include <QtCore/QVariantMap>

namespace tamo {
class PpsObject;
}

namespace tamomock::detail {

/**
 * Writes a channel's maps to a service's object, in the order in which they come. Where the service
 * has not read so many of them that the object takes no more, the rest waits here and follows a few
 * milliseconds later, as long as the event loop runs.
 */
class Outbox : public QObject
{
public:
    /** @param object open for publishing; becomes a child */
    Outbox(tamo::PpsObject* object, QObject* parent);

    /** Writes what waits, as long as the service goes on reading: it is not waited for longer than
     * half a second. Says how much is lost then. */
    ~Outbox() override;

    /** @throws tamo::Exception where the map cannot be encoded */
    void send(const QVariantMap& map);

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    bool takes(const QByteArray& text);
    void sendWaiting();

    tamo::PpsObject* const m_object;
    QQueue<QByteArray> m_waiting;
    QBasicTimer m_timer;
};

} // namespace tamomock::detail

#endif
