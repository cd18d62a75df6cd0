// SPDX-License-Identifier: Apache-2.0
#include <tamo/platform/Notification.h>

#include "NotificationService.h"

#include <QPointer>
#include <QSignalSpy>
#include <QThread>
#include <QUuid>

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <climits>
#include <memory>
#include <thread>

using tamo::platform::Notification;
using tamo::platform::PromptChoice;

namespace {

QString lastMessage;

void keepMessage(QtMsgType, const QMessageLogContext&, const QString& message)
{
    lastMessage = message;
}

class PromptChoiceTest : public testing::Test
{
protected:
    QString idOf(int choice) { return service.idOf(notification, choice); }
    void pick(const QString& choiceId) { service.pick(id, choiceId); }

    static void deleteTheDeferred()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    tamotest::NotificationService service;
    Notification notification;
    const QString id = service.idOf(notification);
};

TEST_F(PromptChoiceTest, PropertiesAnnounceChangesAloneAndAreReset)
{
    PromptChoice choice;
    for (const char* name : {"label", "metadata"}) {
        const QMetaObject& metaObject = *choice.metaObject();
        const QMetaProperty property = metaObject.property(metaObject.indexOfProperty(name));
        QSignalSpy changes(&choice, property.notifySignal());
        EXPECT_TRUE(property.read(&choice).toString().isNull());
        for (int i = 0; i < 2; ++i)
            EXPECT_TRUE(property.write(&choice, "text"));
        EXPECT_EQ(property.read(&choice), "text");
        for (int i = 0; i < 2; ++i)
            EXPECT_TRUE(property.reset(&choice));
        EXPECT_TRUE(property.read(&choice).toString().isNull());
        EXPECT_EQ(changes, (QList<QVariantList>{{"text"}, {QString()}}));
    }
}

TEST_F(PromptChoiceTest, ChildrenAreAttachedOnce)
{
    PromptChoice choice(&notification);
    EXPECT_EQ(notification.countPromptChoices(), 1);
    notification.appendPromptChoice(&choice);
    choice.setParent(&notification);
    EXPECT_EQ(notification.countPromptChoices(), 1);
    EXPECT_EQ(notification.promptChoiceAt(0), &choice);
    QSignalSpy selected(&choice, &PromptChoice::selected);
    pick(idOf(0));
    EXPECT_EQ(selected.count(), 1);
}

TEST_F(PromptChoiceTest, OtherChildrenAndNullAreIgnored)
{
    QObject child(&notification);
    notification.appendPromptChoice(nullptr);
    EXPECT_EQ(notification.countPromptChoices(), 0);
    EXPECT_EQ(notification.children(), QObjectList{&child});
}

TEST_F(PromptChoiceTest, AppendingMakesTheNotificationTheParent)
{
    QObject parent;
    auto* const choice = new PromptChoice(&parent);
    notification.appendPromptChoice(choice);
    EXPECT_EQ(choice->parent(), &notification);
    EXPECT_EQ(notification.countPromptChoices(), 1);
}

TEST_F(PromptChoiceTest, NoPlaceOutsideOfTheListHasAChoice)
{
    PromptChoice choice(&notification);
    EXPECT_EQ(notification.promptChoiceAt(-1), nullptr);
    EXPECT_EQ(notification.promptChoiceAt(1), nullptr);
    EXPECT_EQ(notification.promptChoiceAt(INT_MAX), nullptr);
    EXPECT_EQ(notification.promptChoiceAt(INT_MIN), nullptr);
}

TEST_F(PromptChoiceTest, IsDescribedInTheOrderOfTheList)
{
    PromptChoice first(&notification);
    first.setLabel("first");
    first.setMetadata("data");
    PromptChoice second(&notification);
    second.setMetadata("");
    const QVariantList choices = service.posted(notification).value("promptChoices").toList();
    ASSERT_EQ(choices.size(), 2);
    QVariantMap one = choices.at(0).toMap();
    QVariantMap two = choices.at(1).toMap();
    EXPECT_EQ(one.value("id").toString(), QUuid(one.value("id").toString()).toString());
    EXPECT_NE(one.take("id"), two.take("id"));
    EXPECT_EQ(one, (QVariantMap{{"label", "first"}, {"context", "data"}}));
    EXPECT_EQ(two, (QVariantMap{{"label", QString()}}));
}

TEST_F(PromptChoiceTest, EqualLabelsAreToldApart)
{
    PromptChoice one(&notification);
    PromptChoice other(&notification);
    one.setLabel("same");
    other.setLabel("same");
    QSignalSpy oneSelected(&one, &PromptChoice::selected);
    QSignalSpy otherSelected(&other, &PromptChoice::selected);
    pick(idOf(1));
    EXPECT_EQ(oneSelected.count(), 0);
    EXPECT_EQ(otherSelected.count(), 1);
}

TEST_F(PromptChoiceTest, ClearedChoicesAreDeletedLater)
{
    const QPointer<PromptChoice> one = new PromptChoice(&notification);
    const QPointer<PromptChoice> other = new PromptChoice(&notification);
    QSignalSpy selected(one, &PromptChoice::selected);
    const QString oneId = idOf(0);
    notification.clearPromptChoices();
    EXPECT_EQ(notification.countPromptChoices(), 0);
    ASSERT_TRUE(one && other);
    EXPECT_EQ(one->parent(), &notification);
    pick(oneId);
    EXPECT_EQ(selected.count(), 0);
    deleteTheDeferred();
    EXPECT_TRUE(one.isNull() && other.isNull());
    EXPECT_FALSE(service.posted(notification).contains("promptChoices"));
}

TEST_F(PromptChoiceTest, ClearedOneMayBeAppendedAgainAndIsDeletedAllTheSame)
{
    auto* const choice = new PromptChoice(&notification);
    notification.clearPromptChoices();
    notification.appendPromptChoice(choice);
    EXPECT_EQ(notification.countPromptChoices(), 1);
    deleteTheDeferred();
    EXPECT_EQ(notification.countPromptChoices(), 0);
}

TEST_F(PromptChoiceTest, ChoiceThatMovesAnswersToItsNewNotificationAlone)
{
    Notification other;
    const QString otherId = service.idOf(other);
    PromptChoice choice(&notification);
    const QString choiceId = idOf(0);
    QSignalSpy selected(&choice, &PromptChoice::selected);
    other.appendPromptChoice(&choice);
    EXPECT_EQ(notification.countPromptChoices(), 0);
    EXPECT_EQ(other.countPromptChoices(), 1);
    EXPECT_EQ(choice.parent(), &other);
    EXPECT_EQ(service.idOf(other, 0), choiceId);
    pick(choiceId);
    EXPECT_EQ(selected.count(), 0);
    service.pick(otherId, choiceId);
    EXPECT_EQ(selected.count(), 1);
    notification.appendPromptChoice(&choice);
    pick(choiceId);
    service.pick(otherId, choiceId);
    EXPECT_EQ(selected.count(), 2);
}

TEST_F(PromptChoiceTest, ChoiceWithAnotherParentIsDetached)
{
    QObject parent;
    auto* const choice = new PromptChoice(&notification);
    const QString choiceId = idOf(0);
    QSignalSpy selected(choice, &PromptChoice::selected);
    choice->setParent(&parent);
    EXPECT_EQ(notification.countPromptChoices(), 0);
    pick(choiceId);
    EXPECT_EQ(selected.count(), 0);
}

TEST_F(PromptChoiceTest, DeletedOneLeavesBeforeAnybodyHearsOfIt)
{
    PromptChoice stays(&notification);
    const auto expectGone = [this] {
        EXPECT_EQ(notification.countPromptChoices(), 1);
        EXPECT_EQ(service.posted(notification).value("promptChoices").toList().size(), 1);
    };
    auto* choice = new PromptChoice(&notification);
    QObject::connect(choice, &QObject::destroyed, expectGone);
    delete choice;
    expectGone();

    choice = new PromptChoice(&notification);
    QObject::connect(choice, &QObject::destroyed, expectGone);
    choice->deleteLater();
    EXPECT_EQ(notification.countPromptChoices(), 2);
    deleteTheDeferred();
    expectGone();
}

TEST_F(PromptChoiceTest, SubclassThatHidesChildEventsSeesNoDeletedChoiceEither)
{
    struct Hiding : Notification
    {
        void childEvent(QChildEvent*) override {}
    } hiding;
    auto* const choice = new PromptChoice;
    hiding.appendPromptChoice(choice);
    EXPECT_EQ(hiding.countPromptChoices(), 1);
    delete choice;
    EXPECT_EQ(hiding.countPromptChoices(), 0);
    EXPECT_FALSE(service.posted(hiding).contains("promptChoices"));
}

TEST_F(PromptChoiceTest, EndOfTheNotificationIsTheChoicesEnd)
{
    auto other = std::make_unique<Notification>();
    const QPointer<PromptChoice> choice = new PromptChoice(other.get());
    const QPointer<PromptChoice> cleared = new PromptChoice(other.get());
    other->clearPromptChoices();
    other->appendPromptChoice(choice);
    other.reset();
    EXPECT_TRUE(choice.isNull());
    EXPECT_TRUE(cleared.isNull());
    deleteTheDeferred();
}

TEST_F(PromptChoiceTest, ChoiceOnTheStackMayGoBeforeItsNotification)
{
    {
        PromptChoice choice(&notification);
        EXPECT_EQ(notification.countPromptChoices(), 1);
    }
    EXPECT_EQ(notification.countPromptChoices(), 0);
}

TEST_F(PromptChoiceTest, SlotOfItsSelectionMayDeleteItOrClearTheList)
{
    for (const bool isDeleted : {true, false}) {
        const QPointer<PromptChoice> choice = new PromptChoice(&notification);
        QPointer<PromptChoice> other = new PromptChoice(&notification);
        QObject::connect(choice, &PromptChoice::selected, [&] {
            if (isDeleted)
                delete choice;
            else
                notification.clearPromptChoices();
            delete other;
        });
        pick(idOf(0));
        EXPECT_EQ(choice.isNull(), isDeleted);
        EXPECT_TRUE(other.isNull());
        EXPECT_EQ(notification.countPromptChoices(), 0);
        deleteTheDeferred();
    }
}

TEST_F(PromptChoiceTest, PickOnItsWayReachesNoClearedChoice)
{
    QPointer<PromptChoice> choice = new PromptChoice(&notification);
    const QString choiceId = idOf(0);
    QSignalSpy selected(choice, &PromptChoice::selected);
    // From another thread, whose maps are queued.
    std::thread([&] { service.pick(id, choiceId); }).join();
    notification.clearPromptChoices();
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(selected.count(), 0);
}

TEST_F(PromptChoiceTest, DeletedLaterFromAnotherThreadWhileEverythingIsUsed)
{
    for (int turn = 0; turn < 100; ++turn) {
        auto* const doomed = new PromptChoice(&notification);
        std::thread thread([doomed] { doomed->deleteLater(); });
        while (notification.countPromptChoices() > 0) {
            service.posted(notification);
            QCoreApplication::processEvents();
            deleteTheDeferred();
        }
        thread.join();
    }
    EXPECT_FALSE(service.posted(notification).contains("promptChoices"));
}

TEST_F(PromptChoiceTest, OtherThreadPostsWhileChoicesComeAndGo)
{
    std::atomic<bool> isOver{false};
    int most = 0;
    std::thread thread([&] {
        while (!isOver) {
            notification.notify();
            most = std::max(most, notification.countPromptChoices());
        }
    });
    for (int turn = 0; turn < 500; ++turn) {
        auto* const one = new PromptChoice(&notification);
        one->setParent(nullptr);
        PromptChoice other(&notification);
        notification.clearPromptChoices();
        notification.appendPromptChoice(one);
        delete one;
        QCoreApplication::removePostedEvents(&other, QEvent::DeferredDelete);
    }
    isOver = true;
    thread.join();
    EXPECT_LE(most, 1);
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(notification.countPromptChoices(), 0);
}

TEST_F(PromptChoiceTest, ChoiceOfAnotherThreadIsRefused)
{
    QThread thread;
    PromptChoice choice;
    choice.moveToThread(&thread);
    const QtMessageHandler before = qInstallMessageHandler(keepMessage);
    notification.appendPromptChoice(&choice);
    qInstallMessageHandler(before);
    EXPECT_EQ(lastMessage,
              "tamo::platform::Notification: a choice of another thread cannot be attached");
    EXPECT_EQ(notification.countPromptChoices(), 0);
    EXPECT_EQ(choice.parent(), nullptr);
}

TEST_F(PromptChoiceTest, ListPropertyAppendsCountsFindsAndClears)
{
    auto list = notification.qmlPromptChoices();
    EXPECT_EQ(list.object, &notification);
    EXPECT_EQ(list.data, nullptr);
    auto* const choice = new PromptChoice;
    list.append(&list, choice);
    list.append(&list, nullptr);
    EXPECT_EQ(list.count(&list), 1);
    EXPECT_EQ(list.at(&list, 0), choice);
    EXPECT_EQ(list.at(&list, 1), nullptr);
    EXPECT_EQ(list.at(&list, -1), nullptr);
    list.clear(&list);
    EXPECT_EQ(list.count(&list), 0);
    deleteTheDeferred();
}

TEST_F(PromptChoiceTest, ListPropertyOfSomethingElseDoesNothing)
{
    QObject object;
    PromptChoice choice;
    auto list = notification.qmlPromptChoices();
    for (QObject* const other : {&object, static_cast<QObject*>(nullptr)}) {
        list.object = other;
        list.append(&list, &choice);
        EXPECT_EQ(list.count(&list), 0);
        EXPECT_EQ(list.at(&list, 0), nullptr);
        list.clear(&list);
    }
    EXPECT_EQ(choice.parent(), nullptr);
}

} // namespace
