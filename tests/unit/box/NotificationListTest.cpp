// SPDX-License-Identifier: Apache-2.0
#include "services/notification/NotificationList.h"

#include "common/Failure.h"

#include <gmock/gmock.h>

using namespace tamobox;
using namespace testing;

namespace {

class NotificationListTest : public Test
{
protected:
    Notification& post(int client, const std::string& id)
    {
        const Notification* const before = m_list.findOf(client, id);
        Notification notification;
        notification.number = before == nullptr ? m_list.nextNumber() : before->number;
        notification.client = client;
        notification.process = 100 + client;
        notification.id = id;
        m_posted = notification;
        m_list.put(notification);
        return m_posted;
    }

    int numberOf(const std::string& id, const std::optional<pid_t>& process = std::nullopt) const
    {
        return m_list.find(id, process).number;
    }

    std::string failureOf(const std::string& id,
                          const std::optional<pid_t>& process = std::nullopt) const
    {
        try {
            return "found " + std::to_string(numberOf(id, process));
        } catch (const Failure& failure) {
            return failure.what();
        }
    }

    NotificationList m_list;
    Notification m_posted;
};

TEST_F(NotificationListTest, SameIdOfTheSameClientKeepsItsPlace)
{
    post(1, "a");
    post(1, "b");
    Notification& again = post(1, "a");
    again.text = "new";
    m_list.put(again);
    ASSERT_EQ(m_list.all().size(), 2U);
    EXPECT_EQ(m_list.all().begin()->second.text, "new");
    EXPECT_EQ(m_list.all().rbegin()->second.id, "b");
}

TEST_F(NotificationListTest, SameIdOfAnotherClientIsAnotherNotification)
{
    post(1, "a");
    post(2, "a");
    EXPECT_EQ(m_list.all().size(), 2U);
    EXPECT_EQ(m_list.findOf(2, "a")->client, 2);
    EXPECT_EQ(m_list.findOf(3, "a"), nullptr);
    EXPECT_EQ(numberOf("a", 101), 1);
    EXPECT_EQ(numberOf("a", 102), 2);
    EXPECT_THAT(failureOf("a"), HasSubstr("2 notifications have the id 'a', of the processes 101, "
                                          "102; name one with --application"));
    EXPECT_EQ(failureOf("a", 103),
              "there is no notification 'a' of process 103; there is none at all");
}

TEST_F(NotificationListTest, WhatIsLeftOfAnApplicationThatHasGoneIsTakenOver)
{
    Notification& left = post(1, "a");
    left.isGone = true;
    m_list.put(left);
    EXPECT_THAT(m_list.gone(), SizeIs(1));
    post(2, "a");
    ASSERT_EQ(m_list.all().size(), 1U);
    EXPECT_EQ(m_list.find("a", std::nullopt).client, 2);
    EXPECT_THAT(m_list.gone(), IsEmpty());
}

TEST_F(NotificationListTest, NumbersAreNeverUsedAgain)
{
    post(1, "a");
    post(1, "b");
    m_list.remove(2);
    EXPECT_EQ(post(1, "b").number, 3);
}

TEST_F(NotificationListTest, BeginningOfAnIdIsEnough)
{
    post(1, "{12345678-0000}");
    post(1, "{12999999-0000}");
    EXPECT_EQ(numberOf("{12345678-0000}"), 1);
    EXPECT_EQ(numberOf("{123"), 1);
    EXPECT_EQ(numberOf("129"), 2);
    EXPECT_EQ(failureOf("12"), "several notifications begin with '12': {12345678-0000}, "
                               "{12999999-0000}; give more of the id");
    for (const char* id : {"{", "", "2345678-0000}", "9", "{12345678-0000}x"})
        EXPECT_EQ(failureOf(id), "there is no notification '" + std::string(id) +
                                     "'; there are: {12345678-0000}, {12999999-0000}");
}

TEST_F(NotificationListTest, WholeIdCountsMoreThanABeginning)
{
    post(1, "10");
    post(1, "1");
    EXPECT_EQ(numberOf("1"), 2);
}

TEST_F(NotificationListTest, ExpiredOnesAreThoseWhoseTimeHasCome)
{
    EXPECT_EQ(m_list.nextExpiration(), std::nullopt);
    for (const std::int64_t moment : {3000, 1000, 2000}) {
        Notification& notification = post(1, std::to_string(moment));
        notification.expirationTime = moment;
        m_list.put(notification);
    }
    post(1, "never");
    EXPECT_EQ(m_list.nextExpiration(), 1000);
    EXPECT_THAT(m_list.expiredAt(999), IsEmpty());
    EXPECT_THAT(m_list.expiredAt(2000),
                ElementsAre(Field(&Notification::id, "1000"), Field(&Notification::id, "2000")));
}

TEST_F(NotificationListTest, LedFlashesForTheLastThatIsNewAndHasAColor)
{
    EXPECT_EQ(m_list.forLed(), nullptr);
    for (const char* id : {"opened", "first", "second", "gone"}) {
        Notification& notification = post(1, id);
        notification.ledColor = LedColor::Red;
        notification.isOpened = notification.id == "opened";
        notification.isGone = notification.id == "gone";
        m_list.put(notification);
    }
    post(1, "dark");
    EXPECT_EQ(m_list.forLed()->id, "second");
    m_list.remove(m_list.forLed()->number);
    EXPECT_EQ(m_list.forLed()->id, "first");
    m_list.remove(m_list.forLed()->number);
    EXPECT_EQ(m_list.forLed(), nullptr);
}

} // namespace
