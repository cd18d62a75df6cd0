// SPDX-License-Identifier: Apache-2.0
#include "Outbox.h"

#include <tamo/PpsAccessor.h>
#include <tamo/PpsObject.h>

#include <QtCore/QDeadlineTimer>
#include <QtCore/QTimerEvent>

#include <cerrno>
#include <chrono>
#include <thread>

namespace tamomock::detail {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds pause{5};
constexpr milliseconds lastPause{1};
constexpr milliseconds lastLimit{500};

/** What waits beyond this is not waited for: the service does not read at all. */
constexpr int mostWaiting = 100'000;

} // namespace

Outbox::Outbox(tamo::PpsObject* object, QObject* parent) : QObject(parent), m_object(object)
{
    // So that it is there until the last has been written.
    object->setParent(this);
}

Outbox::~Outbox()
{
    QDeadlineTimer limit(lastLimit);
    auto waiting = m_waiting.size();
    for (sendWaiting(); !m_waiting.isEmpty() && !limit.hasExpired(); sendWaiting()) {
        if (m_waiting.size() < waiting)
            limit.setRemainingTime(lastLimit);
        waiting = m_waiting.size();
        std::this_thread::sleep_for(lastPause);
    }
    if (!m_waiting.isEmpty())
        qWarning("tamomock: %d messages were not sent: the service does not read them",
                 static_cast<int>(m_waiting.size()));
}

void Outbox::send(const QVariantMap& map)
{
    const QByteArray text = tamo::PpsAccessor::encode(map);
    if (m_waiting.isEmpty() && takes(text))
        return;
    if (m_waiting.size() >= mostWaiting) {
        qWarning("tamomock: a message was not sent: the service does not read them");
        return;
    }
    m_waiting.enqueue(text);
    if (!m_timer.isActive())
        m_timer.start(static_cast<int>(pause.count()), this);
}

void Outbox::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_timer.timerId())
        return;
    sendWaiting();
    if (m_waiting.isEmpty())
        m_timer.stop();
}

/** False where there is no room yet; another failure is for good. */
bool Outbox::takes(const QByteArray& text)
{
    return m_object->write(text) == text.size() || m_object->error() != EAGAIN;
}

void Outbox::sendWaiting()
{
    while (!m_waiting.isEmpty() && takes(m_waiting.head()))
        m_waiting.dequeue();
}

} // namespace tamomock::detail
