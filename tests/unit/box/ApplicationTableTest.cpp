// SPDX-License-Identifier: Apache-2.0
#include "services/navigator/ApplicationTable.h"
#include "services/navigator/ApplicationsText.h"

#include <gmock/gmock.h>

using namespace tamobox;
using namespace testing;

namespace {

/** What is told to whom, as text. */
std::vector<std::string> textsOf(const std::vector<AddressedEvent>& events)
{
    std::vector<std::string> texts;
    for (const auto& [process, event] : events) {
        MessageWriter message;
        event.writeTo(message);
        texts.push_back(std::to_string(process) + ' ' + message.text());
    }
    return texts;
}

std::string publishedText(const ApplicationTable& table)
{
    MessageWriter message;
    message.object("applications");
    writeApplications(message, table);
    return message.text();
}

TEST(ApplicationTableTest, LatestIsInTheForegroundAndTheOneBeforeIsTold)
{
    ApplicationTable table;
    EXPECT_EQ(table.foreground(), nullptr);
    EXPECT_THAT(table.arrive(5, "five", 90), IsEmpty());
    EXPECT_EQ(table.foregroundGroup(), "app-5");
    EXPECT_EQ(table.foreground()->angle, 90);
    EXPECT_THAT(textsOf(table.arrive(6, "six", 0)),
                ElementsAre("5 msg::windowInactive\ngroup::app-5\n",
                            "5 msg::windowState\nstate:n:2\ngroup::app-5\n"));
    EXPECT_EQ(table.foregroundGroup(), "app-6");
    EXPECT_EQ(table.groups(), "app-5, app-6");
    EXPECT_FALSE(table.find(5)->active);
    EXPECT_EQ(table.find(5)->state, WindowState::Invisible);
    EXPECT_TRUE(table.find("app-6")->active);
}

TEST(ApplicationTableTest, WhoIsBroughtToTheForegroundIsActive)
{
    ApplicationTable table;
    table.arrive(5, "five", 0);
    table.arrive(6, "six", 0);
    EXPECT_THAT(textsOf(table.bringToForeground(*table.find(5))),
                ElementsAre("6 msg::windowInactive\ngroup::app-6\n",
                            "6 msg::windowState\nstate:n:2\ngroup::app-6\n",
                            "5 msg::windowActive\ngroup::app-5\n"));
    EXPECT_THAT(table.bringToForeground(*table.find(5)), IsEmpty());
    EXPECT_EQ(table.foreground(), table.find(5));
}

TEST(ApplicationTableTest, NobodyIsInTheForegroundAfterItsEnd)
{
    ApplicationTable table;
    table.arrive(5, "five", 0);
    table.arrive(6, "six", 0);
    table.remove(5);
    EXPECT_EQ(table.foregroundGroup(), "app-6");
    table.remove(6);
    table.remove(7);
    EXPECT_EQ(table.foregroundGroup(), "");
    EXPECT_EQ(table.foreground(), nullptr);
    EXPECT_THAT(table.all(), IsEmpty());
}

TEST(ApplicationTableTest, WhatIsPublishedIsReadAgain)
{
    ApplicationTable table;
    table.arrive(5, "five", 180);
    table.arrive(6, "six", 0);
    WindowGroup& application = *table.find(5);
    application.state = WindowState::Thumbnail;
    application.rotationLocked = true;
    application.wantsSwipeStart = true;
    application.badge = 0;
    application.closePrompt = ClosePrompt{"title", "two\nlines"};
    application.uris = {{"icon", "label", "", "url"}, {"a", "b", "c", "d"}};
    table.locked = true;
    EXPECT_EQ(publishedText(readApplications(publishedText(table))), publishedText(table));
}

TEST(ApplicationTableTest, WhatIsMalformedInThePublishedObjectIsLeftOut)
{
    EXPECT_THAT(readApplications("@other\na::b\n").all(), IsEmpty());
    EXPECT_THAT(readApplications("@applications\napplications::none\n").all(), IsEmpty());
    ApplicationTable table = readApplications(
        "@applications\nforeground::app-9\nlocked::yes\napplications:json:[1,{},{\"pid\":-1},"
        "{\"pid\":1e99},{\"pid\":5,\"state\":\"odd\",\"badge\":\"x\",\"closePrompt\":1,"
        "\"uris\":[2]},{\"pid\":5}]\n");
    ASSERT_EQ(table.all().size(), 1U);
    EXPECT_EQ(table.foregroundGroup(), "");
    EXPECT_FALSE(table.locked);
    EXPECT_EQ(table.find(5)->state, WindowState::Fullscreen);
    EXPECT_EQ(table.find(5)->badge, std::nullopt);
    EXPECT_EQ(table.find(5)->closePrompt.has_value(), false);
    EXPECT_THAT(table.find(5)->uris, IsEmpty());
}

} // namespace
