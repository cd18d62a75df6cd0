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

} // namespace
