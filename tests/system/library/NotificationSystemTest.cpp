// SPDX-License-Identifier: Apache-2.0
// Notifications with a service of the test's own, over a real /pps.
#include <tamo/Exception.h>
#include <tamo/platform/Notification.h>
#include <tamomock/NotificationPpsChannel.h>

#include "CatchingApplication.h"
#include "MailboxService.h"
#include "PrivatePps.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <future>
#include <memory>
#include <optional>
#include <stdexcept>
#include <vector>

#include <sys/stat.h>

using tamo::platform::Notification;
using tamo::platform::PromptChoice;
using tamomock::NotificationPpsChannel;
using tamotest::CatchingApplication;

namespace {

using Texts = std::vector<std::string>;

class NotificationSystemTest : public testing::Test
{
protected:
    NotificationSystemTest()
    {
        mkdir("/pps/services", 0777);
        mkdir("/pps/services/notification", 0777);
        service.emplace("services/notification/control");
        notification = std::make_unique<Notification>();
        application.caught.clear();
    }
    ~NotificationSystemTest() override
    {
        notification.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    /** Posts the notification, and returns what the service gets as "dat". */
    QVariantMap posted()
    {
        notification->notify();
        const QVariantMap request = service->next();
        EXPECT_EQ(request.value("msg"), "Notify");
        return request.value("dat").toMap();
    }

    void say(const QString& msg, const QString& id)
    {
        service->answer({{"msg", msg}, {"dat", QVariantMap{{"id", id}, {"context", "c"}}}});
    }

    /** Reads requests in another thread: what each is, and the body or id that it names. */
    std::future<QStringList> readInBackground(int count)
    {
        return std::async(std::launch::async, [this, count] {
            QStringList read;
            for (int i = 0; i < count; ++i) {
                const QVariantMap request = service->next();
                if (request.isEmpty())
                    break;
                const QVariantMap dat = request.value("dat").toMap();
                read += request.value("msg").toString() + ' ' + dat.value("text").toString();
            }
            return read;
        });
    }

    bool hasCaught(const Texts& texts)
    {
        return QTest::qWaitFor([&] { return application.caught == texts; });
    }

    CatchingApplication& application = *CatchingApplication::instance();
    tamotest::PpsFilesystem filesystem;
    std::optional<tamotest::MailboxService> service;
    std::unique_ptr<Notification> notification;
};

TEST(NotificationWithoutPps, IsNotMade)
{
    EXPECT_THROW(Notification(), tamo::Exception);
}

TEST_F(NotificationSystemTest, IsPostedWithItsChoicesAndAnswered)
{
    notification->setBody(QString::fromUtf8("two lines\nand an \xc3\xa4"));
    notification->setMetadata("c");
    PromptChoice yes(notification.get());
    yes.setLabel("yes");
    PromptChoice no(notification.get());
    no.setLabel("no");
    no.setMetadata("data");
    const QVariantMap dat = posted();
    EXPECT_EQ(dat.value("text").toString(), notification->body());
    const QVariantList choices = dat.value("promptChoices").toList();
    ASSERT_EQ(choices.size(), 2);

    QSignalSpy yesSelected(&yes, &PromptChoice::selected);
    QSignalSpy noSelected(&no, &PromptChoice::selected);
    service->answer({{"msg", "Acknowledge"},
                     {"dat", QVariantMap{{"id", dat.value("id")},
                                         {"context", dat.value("context")},
                                         {"promptResponse", 1},
                                         {"promptChoice", choices.at(1)}}}});
    ASSERT_TRUE(noSelected.wait());
    EXPECT_EQ(noSelected, (QList<QVariantList>{{"c", "no", "data"}}));
    EXPECT_TRUE(yesSelected.isEmpty());
}

// A mailbox takes 128 requests that nobody has read.
TEST_F(NotificationSystemTest, MoreThanTheServicesMailboxTakesFollowsInOrder)
{
    QStringList sent;
    for (int i = 0; i < 500; ++i) {
        notification->setBody(QString::number(i));
        notification->notify();
        sent += "Notify " + notification->body();
    }
    std::future<QStringList> read = readInBackground(500);
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return read.wait_for(std::chrono::seconds(0)) == std::future_status::ready; },
        20'000));
    EXPECT_EQ(read.get(), sent);
}

TEST_F(NotificationSystemTest, LastWithdrawalsReachTheServiceBeforeTheChannelEnds)
{
    std::vector<std::unique_ptr<Notification>> others(500);
    std::generate(others.begin(), others.end(), [] { return std::make_unique<Notification>(); });
    std::future<QStringList> read = readInBackground(501);
    others.clear();
    notification.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(read.get().count("Cancel "), 501);
}

TEST_F(NotificationSystemTest, EachAnswerReachesItsNotificationAlone)
{
    Notification other;
    other.notify();
    const QString otherId = service->next().value("dat").toMap().value("id").toString();
    const QString id = posted().value("id").toString();
    QSignalSpy invoked(notification.get(), &Notification::invoked);
    QSignalSpy otherExpired(&other, &Notification::expired);
    say("Invoke", id);
    say("Expire", otherId);
    ASSERT_TRUE(QTest::qWaitFor([&] { return otherExpired.count() == 1; }));
    EXPECT_EQ(invoked, (QList<QVariantList>{{"c"}}));
    EXPECT_EQ(application.caught, Texts{});
}

TEST_F(NotificationSystemTest, UnknownAnswerComesOutOfTheEventLoopAndTheNextOneArrives)
{
    const QString id = posted().value("id").toString();
    QSignalSpy invoked(notification.get(), &Notification::invoked);
    say("Nonsense", id);
    ASSERT_TRUE(hasCaught({"Unknown response received"}));
    say("Invoke", id);
    ASSERT_TRUE(QTest::qWaitFor([&] { return invoked.count() == 1; }));
    // Also where both are there at once.
    say("Nonsense", id);
    say("Invoke", id);
    ASSERT_TRUE(QTest::qWaitFor([&] { return invoked.count() == 2; }));
    EXPECT_EQ(application.caught,
              (Texts{"Unknown response received", "Unknown response received"}));
    const PromptChoice choice(notification.get());
    EXPECT_EQ(posted().value("promptChoices").toList().size(), 1);
}

TEST_F(NotificationSystemTest, ExceptionOfASlotComesOutAndTheNextAnswerArrives)
{
    const QString id = posted().value("id").toString();
    int invocations = 0;
    QObject::connect(notification.get(), &Notification::invoked, [&invocations] {
        if (++invocations == 1)
            throw std::runtime_error("a slot's own");
    });
    say("Invoke", id);
    ASSERT_TRUE(hasCaught({"a slot's own"}));
    say("Invoke", id);
    EXPECT_TRUE(QTest::qWaitFor([&] { return invocations == 2; }));
}

TEST_F(NotificationSystemTest, WhatNoObjectCanCarryIsRefusedAndNothingIsPosted)
{
    for (const QString& text : {QString(QChar(u'\0')), QString(QChar(u'\xD800'))}) {
        notification->setBody(text);
        EXPECT_THROW(notification->notify(), tamo::Exception);
    }
    notification->setBody("a body");
    EXPECT_EQ(posted().value("text"), "a body");
}

TEST_F(NotificationSystemTest, GarbageFromTheServiceIsIgnored)
{
    const QString id = posted().value("id").toString();
    QSignalSpy invoked(notification.get(), &Notification::invoked);
    for (const char* text : {"msg::Invoke\n", "msg:json:{}\ndat:json:[]\n", "dat:json:{\"id\":1}\n",
                             "msg:n:1\ndat::text\n"})
        service->write(text);
    say("Invoke", id);
    ASSERT_TRUE(invoked.wait());
    EXPECT_EQ(invoked.count(), 1);
    EXPECT_EQ(application.caught, Texts{});
}

TEST_F(NotificationSystemTest, GoesOnThroughTheFormerChannelAfterAReset)
{
    const QString id = posted().value("id").toString();
    QSignalSpy invoked(notification.get(), &Notification::invoked);
    NotificationPpsChannel::resetChannel();
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    const Notification other;
    say("Invoke", id);
    EXPECT_TRUE(invoked.wait());
    EXPECT_EQ(posted().value("id").toString(), id);
}

TEST_F(NotificationSystemTest, EndWithdrawsIt)
{
    const QString id = posted().value("id").toString();
    notification.reset();
    const QVariantMap request = service->next();
    EXPECT_EQ(request, (QVariantMap{{"msg", "Cancel"}, {"dat", QVariantMap{{"id", id}}}}));
}

} // namespace
