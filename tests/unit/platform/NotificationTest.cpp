// SPDX-License-Identifier: Apache-2.0
// A notification's values, and what is sent of them.
#include <tamo/platform/Notification.h>

#include "NotificationService.h"

#include <QSignalSpy>
#include <QUuid>

#include <gtest/gtest.h>

#include <memory>

using tamo::device::LedColor;
using tamo::platform::Notification;
using tamo::platform::NotificationTextMode;
using tamo::platform::PromptChoice;

namespace {

class NotificationTest : public testing::Test
{
protected:
    QVariant posted(const QString& name) { return service.posted(notification).value(name); }

    tamotest::NotificationService service;
    Notification notification;
};

TEST_F(NotificationTest, HasItsInitialValues)
{
    EXPECT_TRUE(notification.body().isNull());
    EXPECT_EQ(notification.ledColor(), LedColor::None);
    EXPECT_EQ(notification.textMode(), NotificationTextMode::PlainText);
    EXPECT_TRUE(notification.time().isNull());
    EXPECT_EQ(notification.duration(), 0);
    EXPECT_TRUE(notification.icon().isEmpty());
    EXPECT_TRUE(notification.sound().isNull());
    EXPECT_TRUE(notification.metadata().isNull());
    EXPECT_EQ(notification.countPromptChoices(), 0);
    EXPECT_TRUE(service.sent.isEmpty());
}

TEST_F(NotificationTest, PropertiesAnnounceChangesAloneAndAreReset)
{
    const QDateTime time = QDateTime::fromMSecsSinceEpoch(1234567890123);
    const std::pair<const char*, QVariant> values[] = {
        {"body", "a body"},
        {"ledColor", QVariant::fromValue(LedColor::Green)},
        {"textMode", QVariant::fromValue(NotificationTextMode::RichText)},
        {"time", time},
        {"duration", 10},
        {"icon", QUrl("file:///icon.png")},
        {"sound", "file:///sound.wav"},
        {"metadata", "some data"},
    };
    const QMetaObject& metaObject = *notification.metaObject();
    for (const auto& [name, value] : values) {
        SCOPED_TRACE(name);
        const QMetaProperty property = metaObject.property(metaObject.indexOfProperty(name));
        const QVariant initial = property.read(&notification);
        QSignalSpy changes(&notification, property.notifySignal());
        EXPECT_TRUE(property.write(&notification, value));
        EXPECT_TRUE(property.write(&notification, value));
        EXPECT_EQ(property.read(&notification), value);
        EXPECT_EQ(changes, (QList<QVariantList>{{value}}));
        EXPECT_TRUE(property.reset(&notification));
        EXPECT_TRUE(property.reset(&notification));
        EXPECT_EQ(property.read(&notification), initial);
        EXPECT_EQ(changes, (QList<QVariantList>{{value}, {initial}}));
    }
    EXPECT_TRUE(service.sent.isEmpty());
}

TEST_F(NotificationTest, DurationIsBroughtIntoItsRange)
{
    QSignalSpy durations(&notification, &Notification::durationChanged);
    notification.setDuration(-5);
    EXPECT_TRUE(durations.isEmpty());
    notification.setDuration(40'000'000);
    EXPECT_EQ(notification.duration(), 31'536'000);
    notification.setDuration(31'536'001);
    EXPECT_EQ(durations, (QList<QVariantList>{{31'536'000}}));
    notification.setDuration(-1);
    EXPECT_EQ(notification.duration(), 0);
}

TEST_F(NotificationTest, NewOneSendsItsIdAndAnEmptyText)
{
    notification.notify();
    ASSERT_EQ(service.sent.size(), 1);
    const QVariantMap message = service.sent.at(0);
    const QVariantMap dat = message.value("dat").toMap();
    EXPECT_EQ(message.keys(), (QStringList{"dat", "msg"}));
    EXPECT_EQ(message.value("msg"), "Notify");
    EXPECT_EQ(dat.keys(), (QStringList{"id", "notifyOnInvoke", "text"}));
    EXPECT_EQ(dat.value("text"), QVariant(QString()));
    EXPECT_EQ(dat.value("notifyOnInvoke"), QVariant(true));
    EXPECT_EQ(dat.value("id").toString(), QUuid(dat.value("id").toString()).toString());
    EXPECT_EQ(dat.value("id").toString().size(), 38);
}

TEST_F(NotificationTest, FullOneSendsEverything)
{
    notification.setBody("a body");
    notification.setLedColor(LedColor::Green);
    notification.setMetadata("context");
    notification.setTime(QDateTime::fromMSecsSinceEpoch(1234567890123));
    notification.setDuration(10);
    notification.setSound("file:///sound.wav");
    notification.setIcon(QUrl("file:///a%20picture.png"));
    PromptChoice choice(&notification);
    choice.setLabel("label");
    const qint64 before = QDateTime::currentMSecsSinceEpoch();
    QVariantMap dat = service.posted(notification);
    const qint64 after = QDateTime::currentMSecsSinceEpoch();

    const QVariant expiration = dat.take("expirationTime");
    EXPECT_EQ(expiration.userType(), QMetaType::QString);
    EXPECT_GE(expiration.toString().toLongLong(), before + 10'000);
    EXPECT_LE(expiration.toString().toLongLong(), after + 10'000);
    EXPECT_EQ(dat.take("promptChoices").toList().size(), 1);
    dat.remove("id");
    EXPECT_EQ(dat, (QVariantMap{{"text", "a body"},
                                {"ledColor", 65280},
                                {"context", "context"},
                                {"notifyOnInvoke", true},
                                {"time", "1234567890123"},
                                {"soundUrl", "file:///sound.wav"},
                                {"iconUrl", "/a picture.png"}}));
    EXPECT_EQ(dat.value("ledColor").userType(), QMetaType::Int);
}

TEST_F(NotificationTest, RichTextGoesUnderItsOwnName)
{
    notification.setBody("<b>bold</b>");
    notification.setTextMode(NotificationTextMode::RichText);
    const QVariantMap dat = service.posted(notification);
    EXPECT_EQ(dat.value("htmlText"), "<b>bold</b>");
    EXPECT_FALSE(dat.contains("text"));
    notification.resetBody();
    EXPECT_EQ(posted("htmlText"), QVariant(QString()));
}

TEST_F(NotificationTest, IconsThatAreNoLocalFilesAreLeftOut)
{
    for (const char* url : {"http://example.com/icon.png", "qrc:/icon.png", "icon.png", ":", ""}) {
        notification.setIcon(QUrl(url));
        EXPECT_FALSE(posted("iconUrl").isValid()) << url;
    }
}

TEST_F(NotificationTest, EmptyTextsThatAreNotNullAreSent)
{
    notification.setMetadata("");
    notification.setSound("");
    EXPECT_EQ(posted("context"), QVariant(""));
    EXPECT_EQ(posted("soundUrl"), QVariant(""));
    notification.resetMetadata();
    notification.resetSound();
    EXPECT_FALSE(posted("context").isValid());
    EXPECT_FALSE(posted("soundUrl").isValid());
}

TEST_F(NotificationTest, EachPostHasTheSameIdAndTheValuesOfItsTime)
{
    const QString id = service.idOf(notification);
    notification.setBody("later");
    const QVariantMap dat = service.posted(notification);
    EXPECT_EQ(dat.value("id"), id);
    EXPECT_EQ(dat.value("text"), "later");
}

TEST_F(NotificationTest, CancellingNamesTheNotificationAlone)
{
    const QString id = service.idOf(notification);
    EXPECT_TRUE(QMetaObject::invokeMethod(&notification, "cancel"));
    EXPECT_TRUE(QMetaObject::invokeMethod(&notification, "notify"));
    ASSERT_EQ(service.sent.size(), 2);
    EXPECT_EQ(service.sent.at(0),
              (QVariantMap{{"msg", "Cancel"}, {"dat", QVariantMap{{"id", id}}}}));
    EXPECT_EQ(service.sent.at(1).value("msg"), "Notify");
}

TEST_F(NotificationTest, EndCancelsAlsoWhatWasNeverPosted)
{
    std::make_unique<Notification>().reset();
    ASSERT_EQ(service.sent.size(), 1);
    EXPECT_EQ(service.sent.at(0).value("msg"), "Cancel");
    EXPECT_EQ(service.sent.at(0).value("dat").toMap().keys(), (QStringList{"id"}));
}

TEST_F(NotificationTest, IdsAreDifferent)
{
    Notification other;
    EXPECT_NE(service.idOf(notification), service.idOf(other));
}

TEST_F(NotificationTest, SlotOfAChangeMayDeleteIt)
{
    auto other = std::make_unique<Notification>();
    QString body;
    QObject::connect(other.get(), &Notification::bodyChanged, [&other] { other.reset(); });
    QObject::connect(other.get(), &Notification::bodyChanged,
                     [&body](const QString& value) { body = value; });
    other->setBody("a body");
    EXPECT_EQ(other, nullptr);
}

TEST_F(NotificationTest, EnumerationsCanBeQueued)
{
    QObject context;
    LedColor::Type color = LedColor::None;
    QObject::connect(
        &notification, &Notification::ledColorChanged, &context,
        [&color](LedColor::Type value) { color = value; }, Qt::QueuedConnection);
    notification.setLedColor(LedColor::Blue);
    QCoreApplication::processEvents();
    EXPECT_EQ(color, LedColor::Blue);
}

} // namespace
