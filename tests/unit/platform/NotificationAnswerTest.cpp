// SPDX-License-Identifier: Apache-2.0
// What a notification makes of the service's answers.
#include <tamo/platform/Notification.h>
#include <tamo/platform/NotificationException.h>

#include "NotificationService.h"

#include <QSignalSpy>
#include <QThread>

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <stdexcept>

using tamo::platform::Notification;
using tamo::platform::NotificationException;
using tamo::platform::PromptChoice;

namespace {

class NotificationAnswerTest : public testing::Test
{
protected:
    void say(const QString& msg, QVariantMap dat = {})
    {
        dat.insert("id", id);
        service.say(msg, dat);
    }

    QList<int> counts() const
    {
        return {static_cast<int>(invoked.count()), static_cast<int>(expired.count()),
                static_cast<int>(acknowledged.count()), static_cast<int>(selected.count())};
    }

    tamotest::NotificationService service;
    Notification notification;
    PromptChoice choice{&notification};
    const QString id = service.idOf(notification);
    const QString choiceId = service.idOf(notification, 0);
    QSignalSpy invoked{&notification, &Notification::invoked};
    QSignalSpy expired{&notification, &Notification::expired};
    QSignalSpy acknowledged{&notification, &Notification::acknowledged};
    QSignalSpy selected{&choice, &PromptChoice::selected};
};

TEST_F(NotificationAnswerTest, EachIsASignalWithTheContext)
{
    say("Invoke", {{"context", "one"}});
    say("Expire", {{"context", "two"}});
    say("Acknowledge", {{"context", "three"}});
    EXPECT_EQ(invoked, (QList<QVariantList>{{"one"}}));
    EXPECT_EQ(expired, (QList<QVariantList>{{"two"}}));
    EXPECT_EQ(acknowledged, (QList<QVariantList>{{"three"}}));
    EXPECT_TRUE(selected.isEmpty());
}

TEST_F(NotificationAnswerTest, WithoutAContextTheSignalHasAnEmptyOne)
{
    say("Invoke");
    EXPECT_EQ(invoked, (QList<QVariantList>{{QString()}}));
}

TEST_F(NotificationAnswerTest, PickReachesTheChoiceWithWhatTheServiceSays)
{
    choice.setLabel("another label");
    service.pick(id, choiceId);
    EXPECT_EQ(selected, (QList<QVariantList>{{"c", "l", "m"}}));
    EXPECT_EQ(counts(), (QList<int>{0, 0, 0, 1}));
}

TEST_F(NotificationAnswerTest, AcknowledgementIsAPickWithEachNumberButMinusOne)
{
    const QVariantMap picked = {{"id", choiceId}};
    const std::pair<QVariant, bool> responses[] = {
        {0.0, true},   {3.0, true},     {-2.0, true},           {"0", true},
        {-1.0, false}, {"-1", false},   {QVariant(), false},    {"none", false},
        {"", false},   {picked, false}, {QVariantList(), false}};
    for (const auto& [response, isPick] : responses) {
        selected.clear();
        acknowledged.clear();
        say("Acknowledge", {{"promptResponse", response}, {"promptChoice", picked}});
        EXPECT_EQ(selected.count(), isPick ? 1 : 0) << response.toString().toStdString();
        EXPECT_EQ(acknowledged.count(), isPick ? 0 : 1) << response.toString().toStdString();
    }
}

TEST_F(NotificationAnswerTest, PickOfNoChoiceOrAnUnknownOneIsSilent)
{
    for (const QVariant& picked : {QVariant(), QVariant("text"), QVariant(QVariantMap()),
                                   QVariant(QVariantMap{{"id", "unknown"}})})
        say("Acknowledge", {{"promptResponse", 0.0}, {"promptChoice", picked}});
    EXPECT_EQ(counts(), (QList<int>{0, 0, 0, 0}));
}

TEST_F(NotificationAnswerTest, WhatIsForOthersIsIgnored)
{
    Notification other;
    service.say("Invoke", {{"id", service.idOf(other)}});
    service.say("Nonsense", {{"id", "unknown"}});
    service.say("Invoke", {});
    for (const QVariantMap& map :
         {QVariantMap(), QVariantMap{{"@control", "Invoke"}}, QVariantMap{{"@control", QVariant()}},
          QVariantMap{{"@control", QVariantMap{{"msg", "Invoke"}, {"dat", id}}}},
          QVariantMap{{"@control", QVariantMap{{"msg", "Invoke"}, {"id", id}}}},
          QVariantMap{{"msg", "Invoke"}, {"dat", QVariantMap{{"id", id}}}},
          QVariantMap{
              {"@status", QVariantMap{{"msg", "Invoke"}, {"dat", QVariantMap{{"id", id}}}}}}})
        EXPECT_NO_THROW(service.receive(map));
    EXPECT_EQ(counts(), (QList<int>{0, 0, 0, 0}));
}

TEST_F(NotificationAnswerTest, UnknownOneIsThrownAndTheNextOneArrives)
{
    for (const char* msg : {"Nonsense", "", "invoke", "Notify"}) {
        try {
            say(msg);
            ADD_FAILURE() << msg;
        } catch (const NotificationException& exception) {
            EXPECT_STREQ(exception.what(), "Unknown response received");
        }
    }
    EXPECT_THROW(service.receive({{"@control", QVariantMap{{"dat", QVariantMap{{"id", id}}}}}}),
                 NotificationException);
    say("Invoke");
    service.pick(id, choiceId);
    PromptChoice another(&notification);
    EXPECT_EQ(notification.countPromptChoices(), 2);
    EXPECT_EQ(counts(), (QList<int>{1, 0, 0, 1}));
}

TEST_F(NotificationAnswerTest, ExceptionOfASlotPassesAndTheNextOneArrives)
{
    const auto connection =
        QObject::connect(&choice, &PromptChoice::selected, [] { throw std::runtime_error(""); });
    EXPECT_THROW(service.pick(id, choiceId), std::runtime_error);
    QObject::disconnect(connection);
    service.pick(id, choiceId);
    EXPECT_EQ(selected.count(), 2);
    EXPECT_EQ(notification.countPromptChoices(), 1);
}

TEST_F(NotificationAnswerTest, SlotOfAnyMayDeleteTheNotification)
{
    for (const auto signal :
         {&Notification::invoked, &Notification::expired, &Notification::acknowledged}) {
        auto other = std::make_unique<Notification>();
        const QString otherId = service.idOf(*other);
        QObject::connect(other.get(), signal, [&other] { other.reset(); });
        for (const char* msg : {"Invoke", "Expire", "Acknowledge"})
            service.say(msg, {{"id", otherId}});
        EXPECT_EQ(other, nullptr);
    }
    auto other = std::make_unique<Notification>();
    auto* const otherChoice = new PromptChoice(other.get());
    QObject::connect(otherChoice, &PromptChoice::selected, [&other] { other.reset(); });
    service.pick(service.idOf(*other), service.idOf(*other, 0));
    EXPECT_EQ(other, nullptr);
}

TEST_F(NotificationAnswerTest, ArrivesInTheThreadThatTheNotificationWasMovedTo)
{
    QThread thread;
    auto other = std::make_unique<Notification>();
    const QString otherId = service.idOf(*other);
    auto* const otherChoice = new PromptChoice(other.get());
    const QString otherChoiceId = service.idOf(*other, 0);
    std::atomic<QThread*> invokedIn{nullptr};
    std::atomic<QThread*> selectedIn{nullptr};
    QObject::connect(
        other.get(), &Notification::invoked, other.get(),
        [&invokedIn] { invokedIn = QThread::currentThread(); }, Qt::DirectConnection);
    QObject::connect(
        otherChoice, &PromptChoice::selected, otherChoice,
        [&selectedIn] {
            selectedIn = QThread::currentThread();
            QThread::currentThread()->quit();
        },
        Qt::DirectConnection);
    other->moveToThread(&thread);
    thread.start();
    service.say("Invoke", {{"id", otherId}});
    service.pick(otherId, otherChoiceId);
    ASSERT_TRUE(thread.wait(10'000));
    EXPECT_EQ(invokedIn, &thread);
    EXPECT_EQ(selectedIn, &thread);
    other.reset();
}

} // namespace
