// SPDX-License-Identifier: Apache-2.0
// Any text as the notification service's answer: at most one signal, or the one exception.
#include "DecodedAnswer.h"

#include <tamo/platform/Notification.h>
#include <tamo/platform/NotificationException.h>
#include <tamomock/NotificationPpsChannel.h>

#include <QCoreApplication>

#include <string_view>

using tamo::platform::Notification;
using tamo::platform::NotificationException;
using tamo::platform::PromptChoice;
using tamomock::NotificationPpsChannel;

namespace {

/** A notification with a choice, and what has come of answers. */
struct Posted
{
    Posted()
    {
        NotificationPpsChannel::setChannel(channel);
        notification = new Notification;
        QObject::connect(channel.data(), &NotificationPpsChannel::sendPassthrough,
                         [this](const QVariantMap& map) {
                             id = map.value("dat").toMap().value("id").toString();
                         });
        notification->notify();
        const auto count = [this] { ++signalCount; };
        QObject::connect(notification, &Notification::invoked, count);
        QObject::connect(notification, &Notification::expired, count);
        QObject::connect(notification, &Notification::acknowledged, count);
        QObject::connect(new PromptChoice(notification), &PromptChoice::selected, count);
    }

    const QSharedPointer<NotificationPpsChannel> channel =
        QSharedPointer<NotificationPpsChannel>::create(NotificationPpsChannel::WithoutPps());
    Notification* notification = nullptr; // lives as long as the process
    QString id;
    int signalCount = 0;
};

/** Has an answer be for the notification, whatever it was for. */
void address(QVariantMap& response, const QString& id)
{
    QVariantMap control = response.value("@control").toMap();
    QVariantMap dat = control.value("dat").toMap();
    dat.insert("id", id);
    control.insert("dat", dat);
    response.insert("@control", control);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static int argc = 1;
    static char name[] = "NotificationAnswerFuzz";
    static char* argv[] = {name, nullptr};
    static const auto& application = *new QCoreApplication(argc, argv); // for a parent's events
    Q_UNUSED(application);
    static auto& posted = *new Posted;
    auto response = tamofuzz::decodedAnswer(data, size);
    if (!response)
        return 0;

    posted.signalCount = 0;
    Q_EMIT posted.channel->receivePassthrough(*response);
    tamofuzz::require(posted.signalCount == 0, "an answer for somebody else was heard");

    address(*response, posted.id);
    bool isKnown = true;
    try {
        Q_EMIT posted.channel->receivePassthrough(*response);
    } catch (const NotificationException& exception) {
        isKnown = false;
        tamofuzz::require(exception.what() == std::string_view("Unknown response received"),
                          "another exception");
    }
    const QString msg = response->value("@control").toMap().value("msg").toString();
    tamofuzz::require(isKnown == (msg == "Invoke" || msg == "Expire" || msg == "Acknowledge"),
                      "an unknown answer was taken, or a known one was not");
    tamofuzz::require(posted.signalCount <= (isKnown ? 1 : 0), "an answer was heard twice");
    tamofuzz::require(posted.notification->countPromptChoices() == 1, "a choice has gone");
    return 0;
}
