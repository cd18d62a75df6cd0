// SPDX-License-Identifier: Apache-2.0
// Which publications give which events. That one gives none is seen by the next event's being that
// of a later publication.
#include "ScreenEvents.h"

#include <fcntl.h>
#include <unistd.h>

using namespace tamotest;
using namespace testing;

namespace {

class ScreenWatchTest : public Test
{
protected:
    void request() { ASSERT_EQ(screen_request_events(context.number()), 0); }

    PpsFilesystem pps;
    ScreenContext context;
    ScreenEvents events;
};

TEST_F(ScreenWatchTest, AttachedDetachedAndTurnedDisplaysGiveOneEventEach)
{
    publishDisplays(display(1));
    request();
    publishDisplays(display(1) + ',' + display(2));
    EXPECT_EQ(events.nextChange(), std::pair(2, 1));
    publishDisplays(display(1) + ',' + display(2, R"(,"attached":false)"));
    EXPECT_EQ(events.nextChange(), std::pair(2, 0));
    publishDisplays(display(1, R"(,"rotation":90)") + ',' + display(2, R"(,"attached":false)"));
    EXPECT_EQ(events.nextChange(), std::pair(1, 1));
    publishDisplays(display(1, R"(,"rotation":90)") + ',' + display(2));
    EXPECT_EQ(events.nextChange(), std::pair(2, 1));
    publishDisplays(display(1, R"(,"rotation":90)"));
    EXPECT_EQ(events.nextChange(), std::pair(2, 0));
}

TEST_F(ScreenWatchTest, StateAtTheRequestGivesNoEvent)
{
    publishDisplays(display(1) + ',' + display(2, R"(,"rotation":90)"));
    request();
    publishDisplays(display(1) + ',' + display(2, R"(,"rotation":90)") + ',' + display(3));
    EXPECT_EQ(events.nextChange(), std::pair(3, 1));
}

TEST_F(ScreenWatchTest, OtherChangesGiveNone)
{
    publishDisplays(display(1) + ',' + display(2));
    request();
    publishDisplays(display(2, R"(,"name":"new")") + ',' + display(1, R"(,"physicalWidth":5)"));
    publishDisplays(display(2) + ',' + display(1) + ',' + display(3, R"(,"attached":false)"));
    publishDisplays(display(2) + ',' + display(1));
    publishDisplays(display(9));
    std::vector<std::pair<int, int>> changes;
    for (int i = 0; i < 3; ++i)
        changes.push_back(events.nextChange());
    EXPECT_THAT(changes, UnorderedElementsAre(std::pair(9, 1), std::pair(1, 0), std::pair(2, 0)));
}

TEST_F(ScreenWatchTest, SeveralPublicationsInOneReadingLoseNoDisplay)
{
    publishDisplays(display(1));
    request();
    std::string all = display(1, R"(,"rotation":180)");
    publishDisplays(all);
    for (int id = 2; id <= 50; ++id)
        publishDisplays(all += ',' + display(id));
    std::vector<std::pair<int, int>> changes;
    std::vector<std::pair<int, int>> expected;
    for (int id = 1; id <= 50; ++id) {
        changes.push_back(events.nextChange());
        expected.emplace_back(id, 1);
    }
    EXPECT_THAT(changes, UnorderedElementsAreArray(expected));
}

TEST_F(ScreenWatchTest, FirstPublicationIsComparedWithTheBuiltInDisplay)
{
    publish("services/screen/other", "a::b\n");
    ASSERT_EQ(close(creat("/pps/services/screen/displays", 0644)), 0);
    request();
    publishDisplays(display(1) + ',' + display(2));
    EXPECT_EQ(events.nextChange(), std::pair(2, 1));
    publishDisplays(display(2));
    EXPECT_EQ(events.nextChange(), std::pair(1, 0));
}

TEST_F(ScreenWatchTest, BuiltInDisplayThatIsNotPublishedIsDetached)
{
    publish("services/screen/other", "a::b\n");
    ASSERT_EQ(close(creat("/pps/services/screen/displays", 0644)), 0);
    request();
    publishDisplays("");
    const ScreenEventData data = events.next();
    EXPECT_EQ(std::pair(data.id, data.attached), std::pair(1, 0));
    EXPECT_EQ(nameOf(data.display), "Built-in display");
}

TEST_F(ScreenWatchTest, UnreadablePublicationChangesNothing)
{
    publishDisplays(display(1));
    request();
    publish("services/screen/displays", "displays::none\n");
    publishDisplays(display(1) + ',' + display(2));
    EXPECT_EQ(events.nextChange(), std::pair(2, 1));
}

TEST_F(ScreenWatchTest, WhereNothingCouldBeReadAtFirstEveryDisplayIsAttachedThen)
{
    publish("services/screen/displays", "displays::none\n");
    request();
    publishDisplays(display(4));
    EXPECT_EQ(events.nextChange(), std::pair(4, 1));
}

TEST_F(ScreenWatchTest, PropertiesAreAsNewAsTheEvent)
{
    publishDisplays(display(1) + ',' + display(2, R"(,"attached":false)"));
    const auto displays = context.displays();
    request();
    publishDisplays(display(1, R"(,"rotation":90)") + ',' + display(2));
    const std::vector<ScreenEventData> both = {events.next(), events.next()};
    EXPECT_THAT(both, UnorderedElementsAre(ScreenEventData{displays.at(0), 1, 1},
                                           ScreenEventData{displays.at(1), 2, 1}));
    EXPECT_EQ(pairOf(displays[0], SCREEN_PROPERTY_SIZE), std::pair(200, 100));
    EXPECT_EQ(numberOf(displays[1], SCREEN_PROPERTY_ATTACHED), 1);
    publishDisplays(display(1, R"(,"rotation":90)"));
    EXPECT_EQ(events.nextChange(), std::pair(2, 0));
    EXPECT_EQ(numberOf(displays[1], SCREEN_PROPERTY_ATTACHED), 0);
    EXPECT_EQ(context.listed(2), displays); // the last count's, still
}

TEST_F(ScreenWatchTest, DisplaysAreAsEachEventSaysHoweverManyThereAre)
{
    publishDisplays(display(1));
    request();
    std::string attached = display(1);
    std::string detached = display(1);
    for (int id = 2; id <= 500; ++id) {
        attached += ',' + display(id);
        detached += ',' + display(id, R"(,"attached":false)");
    }
    publishDisplays(attached);
    for (int i = 0; i < 2 * 499; ++i) {
        const ScreenEventData data = events.next();
        ASSERT_EQ(data.attached, i < 499 ? 1 : 0);
        ASSERT_EQ(numberOf(data.display, SCREEN_PROPERTY_ATTACHED), data.attached) << i;
        if (i == 0)
            publishDisplays(detached);
    }
}

TEST_F(ScreenWatchTest, EachContextGetsItsOwnEvents)
{
    publishDisplays(display(1));
    const ScreenContext other;
    request();
    ASSERT_EQ(screen_request_events(other.number()), 0);
    publishDisplays(display(1) + ',' + display(2));
    const ScreenEventData one = events.next();
    const ScreenEventData two = events.next();
    EXPECT_EQ(std::pair(one.id, two.id), std::pair(2, 2));
    EXPECT_NE(one.display, two.display);
    const screen_display_t ofThis = context.displays().at(1);
    const screen_display_t ofOther = other.displays().at(1);
    EXPECT_THAT((std::vector{one.display, two.display}), UnorderedElementsAre(ofThis, ofOther));
}

} // namespace
