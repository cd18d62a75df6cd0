// SPDX-License-Identifier: Apache-2.0
#include <tamo/platform/Notification.h>

#include "NotificationService.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQmlExpression>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <memory>

using tamo::device::LedColor;
using tamo::platform::Notification;
using tamo::platform::NotificationTextMode;
using tamo::platform::PromptChoice;

namespace {

class NotificationQmlTest : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        qmlRegisterType<Notification>("Phone", 1, 0, "Notification");
        qmlRegisterType<PromptChoice>("Phone", 1, 0, "PromptChoice");
        qmlRegisterUncreatableType<LedColor>("Phone", 1, 0, "LedColor", "values only");
        qmlRegisterUncreatableType<NotificationTextMode>("Phone", 1, 0, "TextMode", "values only");
    }

    void SetUp() override
    {
        QQmlComponent component(&engine, QUrl::fromLocalFile(TAMO_TEST_QML));
        notification.reset(qobject_cast<Notification*>(component.create()));
        ASSERT_TRUE(notification) << component.errorString().toStdString();
    }

    /** What an expression comes to, in which the notification's members are names. */
    QVariant evaluated(const QString& text)
    {
        QQmlExpression expression(engine.rootContext(), notification.get(), text);
        const QVariant value = expression.evaluate();
        hasFailed = expression.hasError();
        return value;
    }

    tamotest::NotificationService service;
    QQmlEngine engine;
    std::unique_ptr<Notification> notification;
    bool hasFailed = false;
};

TEST_F(NotificationQmlTest, ChoicesAreWrittenInsideOfTheNotification)
{
    EXPECT_EQ(notification->body(), "Two answers");
    EXPECT_EQ(notification->ledColor(), LedColor::Green);
    EXPECT_EQ(notification->textMode(), NotificationTextMode::RichText);
    EXPECT_EQ(notification->duration(), 60);
    ASSERT_EQ(notification->countPromptChoices(), 2);
    EXPECT_EQ(notification->promptChoiceAt(0)->label(), "yes");
    EXPECT_EQ(notification->promptChoiceAt(0)->metadata(), "1");
    EXPECT_EQ(notification->promptChoiceAt(1)->label(), "no");
    EXPECT_EQ(notification->promptChoiceAt(1)->parent(), notification.get());
    EXPECT_EQ(service.posted(*notification).value("promptChoices").toList().size(), 2);
}

TEST_F(NotificationQmlTest, PickReachesTheChoice)
{
    QSignalSpy selected(notification->promptChoiceAt(1), &PromptChoice::selected);
    service.pick(service.idOf(*notification), service.idOf(*notification, 1));
    EXPECT_EQ(selected, (QList<QVariantList>{{"c", "l", "m"}}));
}

TEST_F(NotificationQmlTest, ChoicesAreLookedAtAndLeaveWhenTheyAreDeleted)
{
    EXPECT_EQ(evaluated("choices.length"), 2);
    EXPECT_EQ(evaluated("choices[0].label"), "yes");
    delete notification->promptChoiceAt(0);
    EXPECT_EQ(evaluated("choices.length"), 1);
    EXPECT_EQ(evaluated("choices[0].label"), "no");
    EXPECT_FALSE(hasFailed);
}

TEST_F(NotificationQmlTest, ChoicesAreNotReplacedOrTakenAwayOneByOne)
{
    evaluated("choices[0] = choices[1]");
    evaluated("choices.length = 1");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(notification->countPromptChoices(), 2);
    EXPECT_EQ(notification->promptChoiceAt(0)->label(), "yes");
}

TEST_F(NotificationQmlTest, RequestsAreCalledByName)
{
    service.takeSent();
    evaluated("notify(); cancel()");
    EXPECT_FALSE(hasFailed);
    ASSERT_EQ(service.sent.size(), 2);
    EXPECT_EQ(service.sent.at(1).value("msg"), "Cancel");
}

} // namespace
