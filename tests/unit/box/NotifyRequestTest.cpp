// SPDX-License-Identifier: Apache-2.0
#include "services/notification/NotifyRequest.h"

#include "common/Failure.h"
#include "services/notification/NotificationText.h"

#include <gmock/gmock.h>

using namespace tamobox;
using namespace testing;

namespace {

Notification read(const std::string& dat)
{
    MessageReader reader("dat:json:" + dat + '\n');
    reader.enter("dat");
    return readNotify(reader);
}

std::string failureOf(const std::string& dat)
{
    try {
        read(dat);
        return "taken";
    } catch (const Failure& failure) {
        return failure.what();
    }
}

/** A notification with an id, a text and more. */
std::string with(const std::string& more)
{
    return R"({"id":"a","text":"b",)" + more + '}';
}

TEST(NotifyRequestTest, EveryMemberIsRead)
{
    const Notification full = read(
        with(R"("ledColor":65280,"context":"","notifyOnInvoke":false,"time":"-5",)"
             R"("expirationTime":"9007199254740993","soundUrl":"s","iconUrl":"i",)"
             R"("promptChoices":[{"id":"1","label":"x"},{"id":"2","label":"","context":"c"}])"));
    EXPECT_EQ(full.id, "a");
    EXPECT_EQ(full.text, "b");
    EXPECT_FALSE(full.isHtml);
    EXPECT_EQ(full.ledColor, LedColor::Green);
    EXPECT_EQ(full.context, "");
    EXPECT_FALSE(full.notifyOnInvoke);
    EXPECT_EQ(full.time, -5);
    EXPECT_EQ(full.expirationTime, 9007199254740993);
    EXPECT_EQ(full.sound, "s");
    EXPECT_EQ(full.icon, "i");
    ASSERT_THAT(full.choices, SizeIs(2));
    EXPECT_EQ(full.choices[0].label, "x");
    EXPECT_EQ(full.choices[0].context, std::nullopt);
    EXPECT_EQ(full.choices[1].context, "c");
}

TEST(NotifyRequestTest, WhatMayBeMissingIsUnknown)
{
    const Notification least = read(R"({"id":"a","htmlText":""})");
    EXPECT_TRUE(least.isHtml);
    EXPECT_EQ(least.ledColor, LedColor::None);
    EXPECT_EQ(least.context, std::nullopt);
    EXPECT_TRUE(least.notifyOnInvoke);
    EXPECT_EQ(least.time, std::nullopt);
    EXPECT_EQ(least.expirationTime, std::nullopt);
    EXPECT_THAT(least.choices, IsEmpty());
}

TEST(NotifyRequestTest, GarbageIsRefusedWithWhatWouldBeRight)
{
    EXPECT_EQ(failureOf("{}"), "id must be a text of at most 128 bytes");
    EXPECT_EQ(failureOf(R"({"id":"","text":""})"), "id must not be empty");
    EXPECT_EQ(failureOf(R"({"id":")" + std::string(129, 'x') + R"(","text":""})"),
              "id must be a text of at most 128 bytes");
    EXPECT_EQ(failureOf(R"({"id":"a"})"), "text must be a text of at most 65536 bytes");
    EXPECT_EQ(failureOf(R"({"id":"a","text":")" + std::string(65'537, 'x') + "\"}"),
              "text must be a text of at most 65536 bytes");
    EXPECT_EQ(failureOf(with(R"("htmlText":"")")), "text and htmlText must not both be there");
    for (const char* color : {"1", "-1", "1e300", "\"red\"", "null"})
        EXPECT_THAT(failureOf(with(std::string("\"ledColor\":") + color)),
                    StartsWith("ledColor must be the RGB value of one of red, green"));
    for (const char* moment :
         {"1", "\"\"", "\"1.5\"", "\" 1\"", "\"1s\"", "\"99999999999999999999\"", "null"})
        EXPECT_EQ(failureOf(with(std::string("\"expirationTime\":") + moment)),
                  "expirationTime must be milliseconds since the epoch, as a text");
    EXPECT_EQ(failureOf(with(R"("context":1)")), "context must be a text of at most 4096 bytes");
    EXPECT_EQ(failureOf(with(R"("notifyOnInvoke":"yes")")), "notifyOnInvoke must be true or false");
    for (const char* choices : {"1", "{\"a\":1}", "[1]", "[[]]"})
        EXPECT_NE(failureOf(with(std::string("\"promptChoices\":") + choices)), "taken");
    EXPECT_EQ(failureOf(with(R"("promptChoices":[{"id":"1"}])")),
              "label must be a text of at most 4096 bytes");
}

TEST(NotifyRequestTest, NumberOfChoicesIsLimited)
{
    std::string choices;
    for (int i = 0; i < 33; ++i)
        choices += (choices.empty() ? "" : ",") + std::string(R"({"id":"1","label":"x"})");
    EXPECT_EQ(failureOf(with("\"promptChoices\":[" + choices + ']')),
              "promptChoices must be at most 32");
}

TEST(NotificationTextTest, WhatIsWrittenIsRead)
{
    Notification written = read(with(
        R"("ledColor":16711935,"context":"c","time":"1","expirationTime":"9007199254740993",)"
        R"("soundUrl":"s","iconUrl":"i","promptChoices":[{"id":"1","label":"x","context":"y"}])"));
    written.number = 17;
    written.client = 4;
    written.process = 5;
    written.application = "app";
    written.isOpened = true;
    MessageWriter message;
    writeNotification(message.object("notifications"), written);
    const std::vector<Notification> all = readNotifications(message.text());
    ASSERT_THAT(all, SizeIs(1));
    EXPECT_EQ(all[0].number, 17);
    EXPECT_EQ(all[0].client, 4);
    EXPECT_EQ(all[0].process, 5);
    EXPECT_EQ(all[0].application, "app");
    EXPECT_TRUE(all[0].isOpened);
    EXPECT_FALSE(all[0].isGone);
    EXPECT_EQ(all[0].ledColor, LedColor::Magenta);
    EXPECT_EQ(all[0].expirationTime, 9007199254740993);
    EXPECT_EQ(all[0].context, "c");
    ASSERT_THAT(all[0].choices, SizeIs(1));
    EXPECT_EQ(all[0].choices[0].context, "y");
}

TEST(NotificationTextTest, WhatCannotBeReadIsLeftOut)
{
    EXPECT_THAT(
        readNotifications("@notifications\nx:json:{\"client\":1,\"id\":\"\",\"text\":\"\"}\n"
                          "1::text\n2:json:{\"id\":\"a\"}\n3:json:[]\n"),
        IsEmpty());
    EXPECT_THAT(readNotifications("@other\n"), IsEmpty());
}

} // namespace
