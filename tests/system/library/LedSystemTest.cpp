// SPDX-License-Identifier: Apache-2.0
// The LED with a service of the test's own, over a real /pps.
#include <tamo/Exception.h>
#include <tamo/device/Led.h>

#include "MailboxService.h"
#include "PrivatePps.h"

#include <QCoreApplication>
#include <QDir>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

using tamo::device::Led;
using tamotest::MailboxService;
using tamotest::publish;

namespace {

constexpr char statusPath[] = "services/led/status";

class LedSystemTest : public testing::Test
{
protected:
    LedSystemTest()
    {
        mkdir("/pps/services", 0777);
        mkdir("/pps/services/led", 0777);
    }
    ~LedSystemTest() override
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    tamotest::PpsFilesystem filesystem;
};

TEST(LedWithoutPps, IsNotMade)
{
    EXPECT_THROW(Led(), tamo::Exception);
}

TEST_F(LedSystemTest, IsNotMadeWithoutEitherObject)
{
    const auto descriptors = [] { return QDir("/proc/self/fd").count(); };
    for (const char* only : {"services/led/control", statusPath}) {
        tamotest::PpsDescriptor(only).close();
        const auto before = descriptors();
        EXPECT_THROW(Led(), tamo::Exception) << only;
        EXPECT_EQ(descriptors(), before);
        EXPECT_EQ(unlink((std::string("/pps/") + only).c_str()), 0);
    }
}

TEST_F(LedSystemTest, FlashesAreCountedFromTheStatus)
{
    MailboxService service("services/led/control");
    publish(statusPath, "red::off\ngreen::off\nblue::off\n");
    Led led;
    QSignalSpy counts(&led, &Led::remainingFlashCountChanged);
    QSignalSpy activities(&led, &Led::activeChanged);
    led.flash(3);
    QVariantMap request = service.next();
    const QString id = request.value("dat").toMap().value("id").toString();
    EXPECT_EQ(
        request,
        (QVariantMap{{"msg", "requestLED"},
                     {"dat", QVariantMap{{"id", id}, {"color", "red"}, {"blinkCount", 3.0}}}}));
    for (int remaining = 2; remaining >= 0; --remaining) {
        publish(statusPath, "red::on\n");
        EXPECT_TRUE(QTest::qWaitFor([&] { return led.remainingFlashCount() == remaining; }));
        publish(statusPath, "red::off\n");
    }
    EXPECT_EQ(counts, (QList<QVariantList>{{2}, {1}}));
    EXPECT_EQ(activities, (QList<QVariantList>{{true}, {false}}));
    EXPECT_EQ(service.next(),
              (QVariantMap{{"msg", "cancelLED"}, {"dat", QVariantMap{{"id", id}}}}));
}

TEST_F(LedSystemTest, MalformedStatusEndsNothing)
{
    MailboxService service("services/led/control");
    publish(statusPath, "red::off\n");
    Led led;
    led.flash(2);
    for (const char* text : {"red:b:true\n", "red:json:{\"on\":1}\n", "-red\n", "red:n:1\n"})
        publish(statusPath, text);
    publish(statusPath, "red::on\n");
    EXPECT_TRUE(QTest::qWaitFor([&led] { return led.remainingFlashCount() == 1; }));
}

TEST_F(LedSystemTest, EndWithdrawsTheRequest)
{
    MailboxService service("services/led/control");
    publish(statusPath, "red::off\n");
    auto led = std::make_unique<Led>();
    led->flash();
    EXPECT_EQ(service.next().value("msg"), "requestLED");
    led.reset();
    EXPECT_EQ(service.next().value("msg"), "cancelLED");
}

} // namespace
