// SPDX-License-Identifier: Apache-2.0
#include <tamo/device/Led.h>

#include "LedService.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

using tamo::device::Led;
using tamo::device::LedColor;

namespace {

class LedTest : public testing::Test
{
protected:
    LedTest() { service.takeSent(); }

    static QVariantMap request(const QString& id, const QString& color, int count)
    {
        return {{"msg", "requestLED"},
                {"dat", QVariantMap{{"id", id}, {"color", color}, {"blinkCount", count}}}};
    }
    static QVariantMap cancellation(const QString& id)
    {
        return {{"msg", "cancelLED"}, {"dat", QVariantMap{{"id", id}}}};
    }

    /** The id of a Led, which it tells when it is withdrawn. */
    QString idOf(Led& anyLed)
    {
        const QSignalBlocker blocker(anyLed);
        anyLed.flash();
        anyLed.cancel();
        return tamotest::idIn(service.takeSent().value(0));
    }

    tamotest::LedService service;
    Led led;
    const QString id = idOf(led);
    QSignalSpy colors{&led, &Led::colorChanged};
    QSignalSpy counts{&led, &Led::remainingFlashCountChanged};
    QSignalSpy activities{&led, &Led::activeChanged};
};

TEST_F(LedTest, IsRedAndInactiveAtFirst)
{
    EXPECT_EQ(led.color(), LedColor::Red);
    EXPECT_EQ(led.remainingFlashCount(), 0);
    EXPECT_FALSE(led.isActive());
    EXPECT_EQ(Led(LedColor::Cyan).color(), LedColor::Cyan);
    EXPECT_TRUE(service.sent.isEmpty());
}

TEST_F(LedTest, FlashingAsksTheServiceAndIsAnnouncedAsActiveAlone)
{
    led.flash(3);
    EXPECT_EQ(service.sent, (QList<QVariantMap>{request(id, "red", 3)}));
    const QVariantMap dat = service.sent.at(0).value("dat").toMap();
    EXPECT_EQ(dat.value("blinkCount").userType(), QMetaType::Int);
    EXPECT_EQ(dat.value("id").userType(), QMetaType::QString);
    EXPECT_EQ(led.remainingFlashCount(), 3);
    EXPECT_TRUE(led.isActive());
    EXPECT_EQ(activities, (QList<QVariantList>{{true}}));
    EXPECT_TRUE(counts.isEmpty());
}

TEST_F(LedTest, ActivityIsAnnouncedBeforeTheRequest)
{
    QObject::connect(&led, &Led::activeChanged, [this] {
        EXPECT_TRUE(service.sent.isEmpty());
        EXPECT_EQ(led.remainingFlashCount(), 2);
    });
    led.flash(2);
    EXPECT_EQ(service.sent.size(), 1);
    QObject::disconnect(&led, nullptr, nullptr, nullptr);
}

TEST_F(LedTest, CountsFlashesDownAndEndsWithTheLast)
{
    led.flash(3);
    service.takeSent();
    service.show("red");
    EXPECT_EQ(led.remainingFlashCount(), 2);
    service.show("red");
    EXPECT_EQ(led.remainingFlashCount(), 1);
    EXPECT_TRUE(service.sent.isEmpty());
    service.show("red");
    EXPECT_EQ(led.remainingFlashCount(), 0);
    EXPECT_EQ(service.sent, (QList<QVariantMap>{cancellation(id)}));
    EXPECT_EQ(counts, (QList<QVariantList>{{2}, {1}}));
    EXPECT_EQ(activities, (QList<QVariantList>{{true}, {false}}));
}

TEST_F(LedTest, NegativeCountsAreWithoutLimit)
{
    led.flash(-7);
    EXPECT_EQ(service.sent, (QList<QVariantMap>{request(id, "red", -1)}));
    EXPECT_EQ(led.remainingFlashCount(), -1);
    service.show("red");
    service.show("red");
    EXPECT_EQ(led.remainingFlashCount(), -1);
    EXPECT_TRUE(counts.isEmpty());
    EXPECT_EQ(service.sent.size(), 1);
}

TEST_F(LedTest, FlashingWithoutACountIsWithoutLimit)
{
    led.flash();
    EXPECT_EQ(service.sent, (QList<QVariantMap>{request(id, "red", -1)}));
}

TEST_F(LedTest, OtherColoursAndDarknessChangeNothing)
{
    led.flash(2);
    for (const char* color : {"", "green", "blue", "red green", "red blue", "red green blue"})
        service.show(color);
    EXPECT_EQ(led.remainingFlashCount(), 2);
    EXPECT_TRUE(counts.isEmpty());
}

TEST_F(LedTest, MixedColoursMatchAllTheirComponents)
{
    Led magenta(LedColor::Magenta);
    magenta.flash(5);
    for (const char* color : {"red", "blue", "red green blue"})
        service.show(color);
    EXPECT_EQ(magenta.remainingFlashCount(), 5);
    service.show("red blue");
    EXPECT_EQ(magenta.remainingFlashCount(), 4);
}

TEST_F(LedTest, MalformedStatusIsDark)
{
    led.flash(2);
    const QVariantMap lit = {{"red", "on"}};
    for (const QVariantMap& map :
         {QVariantMap(), QVariantMap{{"@status", "red"}}, QVariantMap{{"@status", QVariant()}},
          QVariantMap{{"@status", QVariantList{lit}}}, QVariantMap{{"@control", lit}}, lit,
          QVariantMap{{"@status", QVariantMap{{"red", true}}}},
          QVariantMap{{"@status", QVariantMap{{"red", "ON"}}}},
          QVariantMap{{"@status", QVariantMap{{"red", QVariantMap()}}}}})
        service.receive(map);
    EXPECT_EQ(led.remainingFlashCount(), 2);
}

TEST_F(LedTest, FlashingWhileActiveSetsTheCountSilently)
{
    led.flash(2);
    service.takeSent();
    activities.clear();
    led.flash(5);
    EXPECT_EQ(led.remainingFlashCount(), 5);
    led.flash(-3);
    EXPECT_EQ(led.remainingFlashCount(), -1);
    EXPECT_TRUE(service.sent.isEmpty());
    EXPECT_TRUE(activities.isEmpty());
    EXPECT_TRUE(counts.isEmpty());
}

TEST_F(LedTest, FlashingNoTimesCancelsWhatIsActive)
{
    led.flash(2);
    service.takeSent();
    led.flash(0);
    EXPECT_EQ(service.sent, (QList<QVariantMap>{cancellation(id)}));
    EXPECT_FALSE(led.isActive());
}

TEST_F(LedTest, FlashingNoTimesOrWithoutAColourDoesNothing)
{
    led.flash(0);
    led.setColor(LedColor::None);
    led.flash();
    led.flash(3);
    Led(static_cast<LedColor::Type>(0x123456)).flash();
    EXPECT_TRUE(service.sent.isEmpty());
    EXPECT_FALSE(led.isActive());
    EXPECT_TRUE(activities.isEmpty());
}

TEST_F(LedTest, CancellingTellsTheServiceWhileStillActive)
{
    led.flash(2);
    service.takeSent();
    bool wasActive = false;
    const auto connection =
        QObject::connect(service.channel(), &tamomock::LedPpsChannel::sendPassthrough,
                         [&] { wasActive = led.isActive(); });
    led.cancel();
    QObject::disconnect(connection);
    EXPECT_TRUE(wasActive);
    EXPECT_EQ(service.sent, (QList<QVariantMap>{cancellation(id)}));
    EXPECT_EQ(activities, (QList<QVariantList>{{true}, {false}}));
}

TEST_F(LedTest, CancellingWhileInactiveDoesNothing)
{
    led.cancel();
    EXPECT_TRUE(service.sent.isEmpty());
    EXPECT_TRUE(activities.isEmpty());
}

TEST_F(LedTest, HearsOfTheStatusExactlyWhileActive)
{
    EXPECT_FALSE(service.isHeard());
    led.flash();
    EXPECT_TRUE(service.isHeard());
    led.setColor(LedColor::Green);
    EXPECT_TRUE(service.isHeard());
    led.cancel();
    EXPECT_FALSE(service.isHeard());
    led.flash(1);
    service.show("green");
    EXPECT_FALSE(service.isHeard());
}

TEST_F(LedTest, ColourOfAnInactiveLedIsItsOwnBusiness)
{
    led.setColor(LedColor::Blue);
    led.setColor(LedColor::Blue);
    led.resetColor();
    led.setColor(LedColor::None);
    EXPECT_EQ(colors.count(), 3);
    EXPECT_EQ(colors.at(0).at(0).value<LedColor::Type>(), LedColor::Blue);
    EXPECT_EQ(colors.at(1).at(0).value<LedColor::Type>(), LedColor::Red);
    EXPECT_EQ(colors.at(2).at(0).value<LedColor::Type>(), LedColor::None);
    EXPECT_TRUE(service.sent.isEmpty());
}

TEST_F(LedTest, ColourOfAnActiveLedIsAskedForAnewWithWhatRemains)
{
    led.flash(3);
    service.show("red");
    service.takeSent();
    activities.clear();
    counts.clear();
    led.setColor(LedColor::Green);
    EXPECT_EQ(service.sent, (QList<QVariantMap>{cancellation(id), request(id, "green", 2)}));
    EXPECT_EQ(colors.count(), 1);
    EXPECT_TRUE(activities.isEmpty());
    EXPECT_TRUE(counts.isEmpty());
    service.show("red");
    EXPECT_EQ(led.remainingFlashCount(), 2);
    service.show("green");
    EXPECT_EQ(led.remainingFlashCount(), 1);
}

TEST_F(LedTest, NoColourEndsARequestWithoutAnnouncingTheColour)
{
    for (const LedColor::Type none : {LedColor::None, static_cast<LedColor::Type>(0x123456)}) {
        led.resetColor();
        led.flash(3);
        service.takeSent();
        colors.clear();
        activities.clear();
        led.setColor(none);
        EXPECT_EQ(service.takeSent(), (QList<QVariantMap>{cancellation(id)}));
        EXPECT_EQ(led.color(), none);
        EXPECT_FALSE(led.isActive());
        EXPECT_EQ(activities, (QList<QVariantList>{{false}}));
        EXPECT_TRUE(colors.isEmpty());
    }
}

TEST_F(LedTest, SignalsThatTheApplicationBlocksStayBlocked)
{
    led.flash();
    activities.clear();
    led.blockSignals(true);
    led.setColor(LedColor::Green);
    EXPECT_TRUE(led.signalsBlocked());
    EXPECT_TRUE(colors.isEmpty());
    EXPECT_EQ(led.color(), LedColor::Green);
    led.blockSignals(false);
    led.cancel();
    EXPECT_EQ(activities, (QList<QVariantList>{{false}}));
}

TEST_F(LedTest, EndOfAnActiveLedWithdrawsItsRequestSilently)
{
    auto other = std::make_unique<Led>();
    other->flash();
    const QString otherId = tamotest::idIn(service.takeSent().value(0));
    QSignalSpy activity(other.get(), &Led::activeChanged);
    other.reset();
    EXPECT_EQ(service.sent, (QList<QVariantMap>{cancellation(otherId)}));
    EXPECT_TRUE(activity.isEmpty());
    EXPECT_FALSE(service.isHeard());
}

TEST_F(LedTest, EndOfAnInactiveLedIsSilent)
{
    std::make_unique<Led>().reset();
    EXPECT_TRUE(service.sent.isEmpty());
}

TEST_F(LedTest, IdsAreDecimalNumbersThatCountUp)
{
    Led next;
    const QString nextId = idOf(next);
    EXPECT_EQ(nextId.toInt(), id.toInt() + 1);
    EXPECT_EQ(nextId, QString::number(nextId.toInt()));
}

TEST_F(LedTest, KeepsTheChannelOfItsConstruction)
{
    tamotest::LedService other;
    led.flash();
    EXPECT_EQ(service.sent.size(), 1);
    EXPECT_TRUE(other.sent.isEmpty());
}

TEST_F(LedTest, SlotMayCallTheLedAgain)
{
    QObject::connect(&led, &Led::remainingFlashCountChanged,
                     [this] { led.setColor(LedColor::Green); });
    led.flash(3);
    service.show("red");
    EXPECT_EQ(led.color(), LedColor::Green);
    EXPECT_EQ(led.remainingFlashCount(), 2);
    QObject::disconnect(&led, nullptr, nullptr, nullptr);
}

TEST_F(LedTest, RequestThatASlotHasEndedIsNotSent)
{
    QObject::connect(&led, &Led::activeChanged, [this](bool active) {
        if (active)
            led.cancel();
    });
    led.flash(3);
    EXPECT_FALSE(led.isActive());
    EXPECT_EQ(service.sent, (QList<QVariantMap>{cancellation(id)}));
    QObject::disconnect(&led, nullptr, nullptr, nullptr);
}

TEST_F(LedTest, RequestThatASlotHasChangedIsSentAsItIsThen)
{
    QObject::connect(&led, &Led::activeChanged, [this] { led.setColor(LedColor::Green); });
    led.flash(3);
    EXPECT_EQ(service.sent, (QList<QVariantMap>{cancellation(id), request(id, "green", 3)}));
    QObject::disconnect(&led, nullptr, nullptr, nullptr);
}

TEST_F(LedTest, SlotCannotBeginARequestWithoutAColour)
{
    led.flash(3);
    QObject::connect(&led, &Led::activeChanged, [this](bool active) {
        if (!active)
            led.flash(1);
    });
    led.setColor(LedColor::None);
    EXPECT_FALSE(led.isActive());
    EXPECT_EQ(led.color(), LedColor::None);
    EXPECT_EQ(service.sent.last(), cancellation(id));
    QObject::disconnect(&led, nullptr, nullptr, nullptr);
}

TEST_F(LedTest, SlotOfAnySignalMayDeleteTheLed)
{
    enum Deletion {
        WhenActive,
        WhenInactive,
        WhenCounted,
        WhenColoured,
        WhenUncoloured,
        Deletions
    };
    for (int when = 0; when < Deletions; ++when) {
        SCOPED_TRACE(when);
        auto other = std::make_unique<Led>();
        const auto remove = [&other] { other.reset(); };
        if (when == WhenActive)
            QObject::connect(other.get(), &Led::activeChanged, remove);
        if (other)
            other->flash(when == WhenInactive ? 1 : 2);
        if (when == WhenInactive || when == WhenUncoloured)
            QObject::connect(other.get(), &Led::activeChanged, remove);
        if (when == WhenCounted)
            QObject::connect(other.get(), &Led::remainingFlashCountChanged, remove);
        if (when == WhenColoured)
            QObject::connect(other.get(), &Led::colorChanged, remove);
        if (when == WhenInactive || when == WhenCounted)
            service.show("red");
        if (when == WhenColoured)
            other->setColor(LedColor::Green);
        if (when == WhenUncoloured)
            other->setColor(LedColor::None);
        EXPECT_EQ(other, nullptr);
        EXPECT_EQ(service.takeSent().last().value("msg").toString(), "cancelLED");
        EXPECT_FALSE(service.isHeard());
    }
}

TEST_F(LedTest, ExceptionOfASlotLeavesNothingHalfDone)
{
    const auto connection =
        QObject::connect(&led, &Led::activeChanged, [] { throw std::runtime_error("slot"); });
    EXPECT_THROW(led.flash(2), std::runtime_error);
    EXPECT_EQ(service.takeSent(), (QList<QVariantMap>{request(id, "red", 2)}));
    service.show("red");
    EXPECT_EQ(led.remainingFlashCount(), 1);
    EXPECT_THROW(service.show("red"), std::runtime_error);
    EXPECT_FALSE(led.isActive());
    EXPECT_EQ(service.takeSent(), (QList<QVariantMap>{cancellation(id)}));
    QObject::disconnect(connection);
    led.flash(1);
    service.show("red");
    EXPECT_FALSE(led.isActive());
}

TEST_F(LedTest, ColourCanBeQueued)
{
    Led receiver;
    ASSERT_TRUE(QObject::connect(&led, SIGNAL(colorChanged(tamo::device::LedColor::Type)),
                                 &receiver, SIGNAL(colorChanged(tamo::device::LedColor::Type)),
                                 Qt::QueuedConnection));
    QSignalSpy queued(&receiver, &Led::colorChanged);
    led.setColor(LedColor::White);
    ASSERT_TRUE(queued.wait());
    EXPECT_EQ(queued.at(0).at(0).value<LedColor::Type>(), LedColor::White);
}

TEST_F(LedTest, PropertiesAreReadWrittenAndReset)
{
    EXPECT_TRUE(led.setProperty("color", QVariant::fromValue(LedColor::Cyan)));
    EXPECT_EQ(led.color(), LedColor::Cyan);
    EXPECT_TRUE(QMetaObject::invokeMethod(&led, "flash", Q_ARG(int, 4)));
    EXPECT_EQ(led.property("remainingFlashCount").toInt(), 4);
    EXPECT_TRUE(led.property("active").toBool());
    EXPECT_TRUE(QMetaObject::invokeMethod(&led, "cancel"));
    EXPECT_FALSE(led.property("active").toBool());
    const QMetaObject* const metaObject = led.metaObject();
    EXPECT_TRUE(metaObject->property(metaObject->indexOfProperty("color")).reset(&led));
    EXPECT_EQ(led.color(), LedColor::Red);
}

} // namespace
