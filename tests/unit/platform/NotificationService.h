// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_NOTIFICATIONSERVICE_H
#define TAMO_TESTS_NOTIFICATIONSERVICE_H

#include "SubstituteChannel.h"

#include <tamo/platform/Notification.h>
#include <tamomock/NotificationPpsChannel.h>

#include <QString>

namespace tamotest {

/** The notification service, as the process's notifications see it. */
class NotificationService : public SubstituteChannel<tamomock::NotificationPpsChannel>
{
public:
    using Arguments = QVariantMap;

    /** An answer: its name, and what "dat" holds. */
    static QVariantMap answer(const QString& msg, const Arguments& dat)
    {
        return {{"@control", QVariantMap{{"msg", msg}, {"dat", dat}}}};
    }

    void say(const QString& msg, const Arguments& dat) { receive(answer(msg, dat)); }

    /** Tells a notification that a choice was picked. */
    void pick(const QString& id, const QString& choiceId)
    {
        say("Acknowledge",
            {{"id", id},
             {"context", "c"},
             {"promptResponse", 0.0},
             {"promptChoice", QVariantMap{{"id", choiceId}, {"label", "l"}, {"context", "m"}}}});
    }

    /** What a notification says of itself when it is posted. */
    Arguments posted(tamo::platform::Notification& notification)
    {
        takeSent();
        notification.notify();
        return takeSent().value(0).value("dat").toMap();
    }

    QString idOf(tamo::platform::Notification& notification)
    {
        return posted(notification).value("id").toString();
    }

    /** The id of a notification's choice. */
    QString idOf(tamo::platform::Notification& notification, int choice)
    {
        const QVariantList choices = posted(notification).value("promptChoices").toList();
        return choices.value(choice).toMap().value("id").toString();
    }
};

} // namespace tamotest

#endif
