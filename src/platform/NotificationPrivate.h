// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_NOTIFICATIONPRIVATE_H
#define TAMO_PLATFORM_NOTIFICATIONPRIVATE_H

#include "core/Change.h"

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

    /** What the entries of a Notify message are made of. */
    enum Field : unsigned {
        Id = 1,
        Body = 2,
        LedColor = 4,
        TextMode = 8,
        Time = 16,
        Icon = 32,
        Sound = 64,
        Metadata = 128,
        Momentary = 256, ///< the time at which it is sent, and the choices that are there then
        Everything = 511
    };

    /** Sets one of the values. Returns whether that changes it. */
    template<typename Value>
    bool set(Field name, Value& field, const Value& value)
    {
        changed |= name;
        return tamo::detail::change(field, value);
    }

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
    /** Over the choices, and over the making of a message. A choice that is attached enters once
     * more, as the child that it becomes.
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

    /** What the last Notify message held, kept so that the next one is not made from nothing. */
    QVariantMap arguments;
    /** Which Fields have changed since. */
    unsigned changed = Everything;
};

} // namespace platform
} // namespace tamo

#endif
