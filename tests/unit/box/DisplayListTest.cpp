// SPDX-License-Identifier: Apache-2.0
#include "services/display/DisplayList.h"

#include "common/Failure.h"

#include <gtest/gtest.h>

using namespace tamobox;

namespace {

std::string written(const DisplayList& list)
{
    MessageWriter message;
    message.object("displays");
    list.write(message);
    return message.text();
}

DisplayList listOf(const std::string& elements)
{
    return DisplayList::fromMessage("@displays\ndisplays:json:[" + elements + "]\n").value();
}

std::string complaintAbout(const std::string& message)
{
    try {
        DisplayList::fromMessage(message);
    } catch (const Failure& failure) {
        return failure.what();
    }
    return "none";
}

std::string complaintAboutDisplay(const std::string& display)
{
    return complaintAbout("@displays\ndisplays:json:[" + display + "]\n");
}

std::string complaintAboutRotation(DisplayList list, std::optional<int> id, int rotation)
{
    const std::string before = written(list);
    try {
        list.rotate(id, rotation);
    } catch (const Failure& failure) {
        EXPECT_EQ(written(list), before);
        return failure.what();
    }
    return "none";
}

/** Attaches; what came of it. */
std::string attach(DisplayList& list, const std::string& members)
{
    MessageReader message("@display\ndat:json:{" + members + "}\n");
    EXPECT_TRUE(message.enter("@display") && message.enter("dat"));
    const std::string before = written(list);
    try {
        list.attach(message);
    } catch (const Failure& failure) {
        EXPECT_EQ(written(list), before);
        return failure.what();
    }
    return "done";
}

std::string detach(DisplayList& list, int id)
{
    const std::string before = written(list);
    try {
        list.detach(id);
    } catch (const Failure& failure) {
        EXPECT_EQ(written(list), before);
        return failure.what();
    }
    return "done";
}

constexpr const char* plain = R"({"id":2,"width":10,"height":20})";

TEST(DisplayListTest, BuiltInOneIsThePhonesFirst)
{
    const DisplayList list = DisplayList::builtIn();
    ASSERT_EQ(list.displays().size(), 1u);
    const Display& display = list.displays()[0];
    EXPECT_EQ(display.id, 1);
    EXPECT_EQ(display.name, "Built-in display");
    EXPECT_TRUE(display.isInternal);
    EXPECT_TRUE(display.isAttached);
    EXPECT_FALSE(display.isDetachable);
    EXPECT_EQ(display.rotation, 0);
    EXPECT_EQ(std::pair(display.width, display.height), std::pair(768, 1280));
    EXPECT_EQ(std::pair(display.physicalWidth, display.physicalHeight), std::pair(53, 88));
}

TEST(DisplayListTest, WhatIsWrittenIsReadAgain)
{
    const std::string everything =
        R"({"id":3,"name":"Wall \"1\"","type":"external","attached":false,"detachable":false,)"
        R"("rotation":270,"width":1920,"height":1080,"physicalWidth":520,"physicalHeight":290})";
    const DisplayList list = listOf(everything + ',' + plain);
    ASSERT_EQ(list.displays().size(), 2u);
    const Display& display = list.displays()[0];
    EXPECT_EQ(display.id, 3);
    EXPECT_EQ(display.name, "Wall \"1\"");
    EXPECT_FALSE(display.isInternal);
    EXPECT_FALSE(display.isAttached);
    EXPECT_FALSE(display.isDetachable);
    EXPECT_EQ(display.rotation, 270);
    EXPECT_EQ(display.physicalWidth, 520);
    EXPECT_EQ(written(DisplayList::fromMessage(written(list)).value()), written(list));
}

TEST(DisplayListTest, WhatIsNotSaidIsTheDefault)
{
    const DisplayList list = listOf(std::string(plain) + R"(,{"id":4,"width":1,"height":1,)"
                                                         R"("type":"internal"})");
    const Display& external = list.displays().at(0);
    EXPECT_EQ(external.name, "");
    EXPECT_FALSE(external.isInternal);
    EXPECT_TRUE(external.isAttached);
    EXPECT_TRUE(external.isDetachable);
    EXPECT_EQ(external.rotation, 0);
    EXPECT_EQ(external.physicalWidth, 0);
    EXPECT_FALSE(list.displays().at(1).isDetachable);
}

TEST(DisplayListTest, ObjectThatDoesNotSayIsNoList)
{
    EXPECT_FALSE(DisplayList::fromMessage("@displays\n"));
    EXPECT_FALSE(DisplayList::fromMessage("@displays\nother:n:1\n"));
    EXPECT_TRUE(listOf("").displays().empty());
}

TEST(DisplayListTest, DamagedListIsRefusedWithTheReason)
{
    EXPECT_EQ(complaintAbout("@displays\ndisplays::none\n"),
              "/pps/services/screen/displays: displays must be an array");
    EXPECT_EQ(complaintAboutDisplay("5"),
              "/pps/services/screen/displays: display 1 must be an object");
    EXPECT_EQ(complaintAboutDisplay(std::string(plain) + R"(,{"id":1,"width":10})"),
              "/pps/services/screen/displays: display 2: the display's height must be a whole "
              "number above 0");
    EXPECT_EQ(complaintAboutDisplay(std::string(plain) + ',' + plain),
              "/pps/services/screen/displays: display 2 has the id of an earlier one");
    const auto complaintAboutMember = [](const std::string& member) {
        const std::string text =
            complaintAboutDisplay(R"({"id":2,"width":10,"height":20,)" + member + '}');
        return text.substr(text.find("the display's"));
    };
    EXPECT_EQ(complaintAboutMember(R"("id":0)"), "the display's id must be a whole number above 0");
    EXPECT_EQ(complaintAboutMember(R"("width":1.5)"),
              "the display's width must be a whole number above 0");
    EXPECT_EQ(complaintAboutMember(R"("rotation":45)"),
              "the display's rotation must be 0, 90, 180 or 270");
    EXPECT_EQ(complaintAboutMember(R"("rotation":360)"),
              "the display's rotation must be 0, 90, 180 or 270");
    EXPECT_EQ(complaintAboutMember(R"("physicalHeight":-1)"),
              "the display's physicalHeight must be a whole number, 0 or above");
    EXPECT_EQ(complaintAboutMember(R"("attached":1)"),
              "the display's attached must be true or false");
    EXPECT_EQ(complaintAboutMember(R"("type":"big")"),
              "the display's type must be internal or external");
    EXPECT_EQ(complaintAboutMember(R"("name":7)"), "the display's name must be a text");
}

TEST(DisplayListTest, TurnsTheDisplayThatIsMeant)
{
    DisplayList list =
        listOf(std::string(plain) + R"(,{"id":7,"width":1,"height":1,"type":"internal"})");
    list.rotate(std::nullopt, 90);
    list.rotate(2, 180);
    EXPECT_EQ(list.displays()[0].rotation, 180);
    EXPECT_EQ(list.displays()[1].rotation, 90);
    list.rotate(7, 0);
    EXPECT_EQ(list.displays()[1].rotation, 0);
}

TEST(DisplayListTest, WrongRotationIsRefusedAndChangesNothing)
{
    for (const int rotation : {-90, 1, 45, 360})
        EXPECT_EQ(complaintAboutRotation(DisplayList::builtIn(), 1, rotation),
                  "a display's rotation must be 0, 90, 180 or 270");
    EXPECT_EQ(complaintAboutRotation(DisplayList::builtIn(), 2, 90),
              "there is no display 2; there are: 1");
    EXPECT_EQ(complaintAboutRotation(listOf(""), 2, 90), "there is no display 2; there are: none");
    EXPECT_EQ(complaintAboutRotation(listOf(plain), std::nullopt, 90),
              "there is no internal display; say which one is meant: 2");
    EXPECT_EQ(complaintAboutRotation(listOf(R"({"id":2,"width":10,"height":20,"attached":false})"),
                                     2, 90),
              "the display 2 is not attached");
}

TEST(DisplayListTest, NewDisplayComesAtTheEndWithWhatIsSaidOfIt)
{
    DisplayList list = DisplayList::builtIn();
    EXPECT_EQ(attach(list, R"("id":7)"), "done");
    EXPECT_EQ(attach(list, R"("id":3,"name":"Wall","type":"internal","rotation":90,"width":1280,)"
                           R"("height":720,"physicalWidth":160,"physicalHeight":90,)"
                           R"("detachable":false)"),
              "done");
    ASSERT_EQ(list.displays().size(), 3u);
    const Display& plainOne = list.displays()[1];
    EXPECT_EQ(plainOne.id, 7);
    EXPECT_EQ(plainOne.name, "Display 7");
    EXPECT_EQ(std::pair(plainOne.width, plainOne.height), std::pair(1920, 1080));
    EXPECT_EQ(std::pair(plainOne.physicalWidth, plainOne.physicalHeight), std::pair(0, 0));
    EXPECT_FALSE(plainOne.isInternal);
    EXPECT_TRUE(plainOne.isAttached);
    EXPECT_TRUE(plainOne.isDetachable);
    EXPECT_EQ(plainOne.rotation, 0);
    const Display& wall = list.displays()[2];
    EXPECT_EQ(wall.name, "Wall");
    EXPECT_TRUE(wall.isInternal);
    EXPECT_FALSE(wall.isDetachable);
    EXPECT_EQ(wall.rotation, 90);
    EXPECT_EQ(std::pair(wall.width, wall.height), std::pair(1280, 720));
    EXPECT_EQ(std::pair(wall.physicalWidth, wall.physicalHeight), std::pair(160, 90));
    EXPECT_EQ(written(DisplayList::fromMessage(written(list)).value()), written(list));
}

TEST(DisplayListTest, DetachedDisplayComesBackAsItWasButForWhatIsSaid)
{
    DisplayList list = DisplayList::builtIn();
    EXPECT_EQ(attach(list, R"("id":2,"name":"Wall","width":1280,"height":720)"), "done");
    EXPECT_EQ(detach(list, 2), "done");
    ASSERT_EQ(list.displays().size(), 2u);
    EXPECT_FALSE(list.displays()[1].isAttached);
    EXPECT_EQ(attach(list, R"("id":2,"rotation":180)"), "done");
    ASSERT_EQ(list.displays().size(), 2u);
    const Display& display = list.displays()[1];
    EXPECT_TRUE(display.isAttached);
    EXPECT_EQ(display.name, "Wall");
    EXPECT_EQ(display.width, 1280);
    EXPECT_EQ(display.rotation, 180);
}

TEST(DisplayListTest, WrongAttachmentsAreRefusedAndChangeNothing)
{
    DisplayList list = DisplayList::builtIn();
    EXPECT_EQ(attach(list, R"("id":1)"), "the display 1 is attached already");
    for (const char* members : {R"("width":5)", R"("id":0)", R"("id":-1)", R"("id":1.5)",
                                R"("id":"2")", R"("id":2147483648)"})
        EXPECT_EQ(attach(list, members), "the display's id must be a whole number above 0");
    for (const char* size : {"0", "-1", "1.5", "2147483648", "\"5\""}) {
        const std::string value = std::string(":") + size;
        EXPECT_EQ(attach(list, R"("id":2,"width")" + value),
                  "the display's width must be a whole number above 0");
        EXPECT_EQ(attach(list, R"("id":2,"height")" + value),
                  "the display's height must be a whole number above 0");
    }
    EXPECT_EQ(attach(list, R"("id":2,"physicalWidth":-1)"),
              "the display's physicalWidth must be a whole number, 0 or above");
    EXPECT_EQ(attach(list, R"("id":2,"rotation":45)"),
              "the display's rotation must be 0, 90, 180 or 270");
    EXPECT_EQ(attach(list, R"("id":2,"type":"big")"),
              "the display's type must be internal or external");
    EXPECT_EQ(attach(list, R"("id":2,"detachable":1)"),
              "the display's detachable must be true or false");
    EXPECT_EQ(attach(list, R"("id":2,"name":7)"), "the display's name must be a text");
    EXPECT_EQ(attach(list, R"("id":2,"name":")" + std::string(129, 'n') + '"'),
              "the display's name must be at most 128 bytes long");
    EXPECT_EQ(attach(list, R"("id":2,"name":")" + std::string(128, 'n') + '"'), "done");
    EXPECT_EQ(attach(list, R"("id":2147483647,"width":2147483647,"height":1,"attached":false)"),
              "done");
    EXPECT_TRUE(list.displays().back().isAttached);
}

TEST(DisplayListTest, WhatCannotBeDetachedIsSaid)
{
    DisplayList list = DisplayList::builtIn();
    EXPECT_EQ(detach(list, 1), "the display 1 cannot be detached");
    EXPECT_EQ(detach(list, 2), "there is no display 2; there are: 1");
    EXPECT_EQ(attach(list, R"("id":2)"), "done");
    EXPECT_EQ(detach(list, 2), "done");
    EXPECT_EQ(detach(list, 2), "the display 2 is not attached");
}

} // namespace
