// SPDX-License-Identifier: Apache-2.0
#include <tamo/platform/NotificationException.h>

#include "platform/NotificationMessages.h"

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

using tamo::platform::NotificationException;
using tamo::platform::notificationMessages;

namespace {

TEST(NotificationException, SaysItsMessage)
{
    EXPECT_STREQ(NotificationException("a message").what(), "a message");
    EXPECT_STREQ(NotificationException(QString()).what(), "");
    EXPECT_STREQ(NotificationException(QString::fromUtf8("\xc3\xa4 \xe2\x82\xac")).what(),
                 "\xe4 ?");
}

TEST(NotificationException, IsATamoException)
{
    EXPECT_THROW(throw NotificationException("a message"), tamo::Exception);
}

TEST(NotificationException, TextOutlivesCopies)
{
    const NotificationException original("a message");
    auto copy = std::make_unique<NotificationException>(original);
    const char* const text = copy->what();
    copy.reset();
    EXPECT_STREQ(text, "a message");
}

TEST(NotificationException, CopyOutlivesTheOriginal)
{
    auto original = std::make_unique<NotificationException>(QStringLiteral("a message"));
    NotificationException copy("another");
    copy = *original;
    const char* const text = original->what();
    original.reset();
    EXPECT_STREQ(text, "a message");
    EXPECT_STREQ(copy.what(), "a message");
    EXPECT_TRUE(std::is_nothrow_copy_constructible_v<NotificationException>);
    EXPECT_TRUE(std::is_nothrow_copy_assignable_v<NotificationException>);
}

TEST(NotificationMessages, AreMadeOnce)
{
    EXPECT_EQ(notificationMessages().systemIsMalfunctioning,
              "Notification system is malfunctioning");
    EXPECT_EQ(notificationMessages().unknownResponse, "Unknown response received");
    EXPECT_EQ(notificationMessages().malformedResponse, "Malformed response received");
    EXPECT_EQ(&notificationMessages(), &notificationMessages());
}

} // namespace
