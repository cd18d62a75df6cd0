// SPDX-License-Identifier: Apache-2.0
#include "NotificationPrivate.h"

#include "NotificationMessages.h"
#include "PromptChoicePrivate.h"
#include "core/InitialExec.h"
#include "mock/ChannelShare.h"
#include "pps/ServiceMessage.h"

#include <tamo/platform/NotificationException.h>

#include <QtCore/QChildEvent>
#include <QtCore/QMutexLocker>
#include <QtCore/QThread>

#include <algorithm>

namespace tamo {
namespace platform {

using tamo::detail::memberMap;
using tamo::detail::requestMessage;

namespace {

using Entry = tamo::detail::MessageEntry<NotificationPrivate>;
using Source = const NotificationPrivate&;

template<typename Value>
QVariant valueIf(bool condition, const Value& value)
{
    return condition ? QVariant(value) : QVariant();
}

QVariant expirationTime(Source d)
{
    constexpr qint64 millisecondsPerSecond = 1000;
    if (d.duration == 0)
        return QVariant();
    return QString::number(QDateTime::currentMSecsSinceEpoch() +
                           d.duration * millisecondsPerSecond);
}

/** The id of the notification that a response is for. Every notification of the process is handed
 * the same response, one after the other, and it is looked up for the first of them. */
const QString& addresseeOf(const QVariantMap& response)
{
    struct Last
    {
        QVariantMap response; // kept, so that no other one takes its place in memory
        QString id;
    };
    TAMO_INITIAL_EXEC static thread_local Last last;
    if (!last.response.isSharedWith(response)) {
        const QVariantMap& control = memberMap(response, QStringLiteral("@control"));
        const QVariantMap& dat = memberMap(control, QStringLiteral("dat"));
        last.id = dat.value(QStringLiteral("id")).toString();
        last.response = response;
    }
    return last.id;
}

QVariant iconPath(Source d)
{
    return d.icon.isValid() && d.icon.isLocalFile() ? d.icon.toLocalFile() : QVariant();
}

QVariant timeText(Source d)
{
    return d.time.isNull() ? QVariant() : QString::number(d.time.toMSecsSinceEpoch());
}

/** An entry of a Notify message, and what it is made of. */
struct Line
{
    unsigned fields; ///< any of which changes it
    Entry entry;
};

struct Notify
{
    using P = NotificationPrivate;
    const Line lines[11] = {
        {P::Metadata,
         {QStringLiteral("context"),
          [](Source d) { return valueIf(!d.metadata.isNull(), d.metadata); }}},
        {P::Momentary, {QStringLiteral("expirationTime"), expirationTime}},
        {P::Body | P::TextMode,
         {QStringLiteral("htmlText"),
          [](Source d) { return valueIf(d.textMode == NotificationTextMode::RichText, d.body); }}},
        {P::Icon, {QStringLiteral("iconUrl"), iconPath}},
        {P::Id, {QStringLiteral("id"), [](Source d) { return QVariant(d.id); }}},
        {P::LedColor,
         {QStringLiteral("ledColor"),
          [](Source d) {
              return valueIf(d.ledColor != device::LedColor::None, static_cast<int>(d.ledColor));
          }}},
        {P::Id, {QStringLiteral("notifyOnInvoke"), [](Source) { return QVariant(true); }}},
        {P::Momentary,
         {QStringLiteral("promptChoices"), [](Source d) { return d.describeChoices(); }}},
        {P::Sound,
         {QStringLiteral("soundUrl"),
          [](Source d) { return valueIf(!d.sound.isNull(), d.sound); }}},
        {P::Body | P::TextMode,
         {QStringLiteral("text"),
          [](Source d) { return valueIf(d.textMode != NotificationTextMode::RichText, d.body); }}},
        {P::Time, {QStringLiteral("time"), timeText}},
    };
};

void acknowledge(NotificationPrivate& d, const QVariantMap& dat, const QString& context)
{
    constexpr int noChoice = -1;
    bool isNumber = false;
    const int response = dat.value(QStringLiteral("promptResponse")).toInt(&isNumber);
    if (!isNumber || response == noChoice) {
        Q_EMIT d.q->acknowledged(context);
        return;
    }
    const QVariantMap choice = memberMap(dat, QStringLiteral("promptChoice"));
    Q_EMIT d.selectedBroadcast(choice.value(QStringLiteral("id")).toString(), context,
                               choice.value(QStringLiteral("label")).toString(),
                               choice.value(QStringLiteral("context")).toString());
}

/** An answer of the service's, and what it sets off: a signal, the last that is done here, since a
 * receiver may delete the notification. */
struct Answer
{
    QLatin1String msg;
    void (*deliver)(NotificationPrivate& d, const QVariantMap& dat, const QString& context);
};

constexpr Answer answers[] = {
    {QLatin1String("Invoke"), [](NotificationPrivate& d, const QVariantMap&,
                                 const QString& context) { Q_EMIT d.q->invoked(context); }},
    {QLatin1String("Expire"), [](NotificationPrivate& d, const QVariantMap&,
                                 const QString& context) { Q_EMIT d.q->expired(context); }},
    {QLatin1String("Acknowledge"), acknowledge},
};

} // namespace

NotificationPrivate::NotificationPrivate(Notification* notification)
    : q(notification)
    , channel(
          tamomock::detail::joinChannel<tamomock::NotificationPpsChannel, NotificationException>(
              this, notificationMessages().systemIsMalfunctioning))
{
    connect(channel.data(), SIGNAL(receivePassthrough(QVariantMap)), this,
            SLOT(onResponse(QVariantMap)));
}

NotificationPrivate::~NotificationPrivate()
{
    cancel();
}

void NotificationPrivate::notify()
{
    static const auto& table = *new Notify;
    QMutexLocker locker(&choicesMutex);
    for (const Line& line : table.lines) {
        if (line.fields & changed)
            tamo::detail::setEntry(arguments, line.entry, *this);
    }
    changed = Momentary;
    const QVariantMap message = requestMessage(QStringLiteral("Notify"), arguments);
    locker.unlock();
    Q_EMIT send(message);
}

void NotificationPrivate::cancel()
{
    Q_EMIT send(requestMessage(QStringLiteral("Cancel"), {{QStringLiteral("id"), id}}));
}

void NotificationPrivate::attach(PromptChoice* choice)
{
    if (!choice)
        return;
    if (choice->thread() != q->thread()) {
        qWarning("tamo::platform::Notification: a choice of another thread cannot be attached");
        return;
    }
    const QMutexLocker locker(&choicesMutex);
    if (promptChoices.lastIndexOf(choice) == -1) {
        promptChoices.append(choice);
        connect(choice, SIGNAL(destroyed(QObject*)), this, SLOT(onChildDestroyed(QObject*)),
                Qt::UniqueConnection);
        connect(this, SIGNAL(selectedBroadcast(QString, QString, QString, QString)),
                choice->d.get(), SLOT(onSelectedBroadcast(QString, QString, QString, QString)));
    }
    if (choice->parent() != q)
        choice->setParent(q);
}

void NotificationPrivate::clear()
{
    const QMutexLocker locker(&choicesMutex);
    const QList<PromptChoice*> former = promptChoices;
    for (PromptChoice* const choice : former) {
        detach(choice);
        choice->deleteLater();
    }
}

QVariant NotificationPrivate::describeChoices() const
{
    const QMutexLocker locker(&choicesMutex);
    if (promptChoices.isEmpty())
        return QVariant();
    QVariantList descriptions;
    descriptions.reserve(promptChoices.size());
    for (const PromptChoice* const choice : promptChoices)
        descriptions.append(choice->d->description);
    return descriptions;
}

void NotificationPrivate::childEvent(QChildEvent* event)
{
    if (event->type() == QEvent::ChildAdded)
        attach(qobject_cast<PromptChoice*>(event->child()));
    else if (event->type() == QEvent::ChildRemoved)
        detach(event->child());
}

void NotificationPrivate::onChildDestroyed(QObject* child)
{
    detach(child);
}

void NotificationPrivate::onResponse(const QVariantMap& response)
{
    // Each notification of the process gets the answers for all.
    if (addresseeOf(response) != id)
        return;
    const QVariantMap& control = memberMap(response, QStringLiteral("@control"));
    const QVariantMap& dat = memberMap(control, QStringLiteral("dat"));
    const QString msg = control.value(QStringLiteral("msg")).toString();
    const QString context = dat.value(QStringLiteral("context")).toString();
    const auto* const answer = std::find_if(std::begin(answers), std::end(answers),
                                            [&msg](const Answer& a) { return a.msg == msg; });
    if (answer == std::end(answers))
        throw NotificationException(notificationMessages().unknownResponse);
    answer->deliver(*this, dat, context);
}

// Of a choice that is being deleted there may be nothing left but the address; that is enough to
// take it from the list, and Qt ends its connections.
void NotificationPrivate::detach(QObject* child)
{
    const QMutexLocker locker(&choicesMutex);
    const auto isChild = [child](const QObject* choice) { return choice == child; };
    const auto rest = std::remove_if(promptChoices.begin(), promptChoices.end(), isChild);
    if (rest == promptChoices.end())
        return;
    promptChoices.erase(rest, promptChoices.end());
    if (const auto* const choice = qobject_cast<PromptChoice*>(child)) {
        disconnect(choice, SIGNAL(destroyed(QObject*)), this, SLOT(onChildDestroyed(QObject*)));
        disconnect(this, SIGNAL(selectedBroadcast(QString, QString, QString, QString)),
                   choice->d.get(), SLOT(onSelectedBroadcast(QString, QString, QString, QString)));
    }
}

} // namespace platform
} // namespace tamo
