// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_NOTIFICATIONPRIVATE_H
#define TAMO_PLATFORM_NOTIFICATIONPRIVATE_H

#include <tamo/platform/Notification.h>
#include <tamomock/NotificationPpsChannel.h>

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QRecursiveMutex>
#include <QtCore/QSharedPointer>
#include <QtCore/QUuid>
#include <QtCore/QVariant>

namespace tamo {
namespace platform {

/** A Notification's values, its choices, and its share of the channel. Without a parent until the
 * notification is moved to another thread, its child from then on. */
class NotificationPrivate : public QObject
{
    Q_OBJECT

public:
    /** @throws NotificationException where there is no channel */
    explicit NotificationPrivate(Notification* notification);
    /** Withdraws the notification. */
    ~NotificationPrivate() override;

    void notify();
    void cancel();

    void attach(PromptChoice* choice);
    void clear();
    /** What the choices are in a Notify message; invalid where there are none. */
    QVariant describeChoices() const;

    void childEvent(QChildEvent* event) override;

    Notification* const q;
    const QString id = QUuid::createUuid().toString();
    QString body;
    device::LedColor::Type ledColor = device::LedColor::None;
    NotificationTextMode::Type textMode = NotificationTextMode::PlainText;
    QDateTime time;
    int duration = 0;
    QUrl icon;
    QString sound;
    /** Over the choices. A choice that is attached enters once more, as the child that it becomes.
     */
    mutable QRecursiveMutex choicesMutex;
    QList<PromptChoice*> promptChoices;
    QString metadata;
    const QSharedPointer<tamomock::NotificationPpsChannel> channel;

Q_SIGNALS:
    void selectedBroadcast(const QString& id, const QString& notificationMetadata,
                           const QString& label, const QString& metadata);
    void send(const QVariantMap& message);

public Q_SLOTS:
    void onChildDestroyed(QObject* child);
    void onResponse(const QVariantMap& response);

private:
    void detach(QObject* child);
    void onAcknowledgement(const QVariantMap& dat, const QString& context);
};

} // namespace platform
} // namespace tamo

#endif
