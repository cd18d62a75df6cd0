// SPDX-License-Identifier: Apache-2.0
// What a DisplayManager finds when it is constructed.
#include "DisplayManagerTest.h"

#include <tamo/Exception.h>

#include <gmock/gmock.h>

#include <limits>

using namespace tamotest;
using namespace testing;
using tamo::device::Display;
using tamo::device::DisplayManager;

namespace {

constexpr int huge = std::numeric_limits<int>::max();
constexpr int negative = std::numeric_limits<int>::min();
const std::string tooManyLine = "DisplayManagerPrivate::DisplayManagerPrivate(): "
                                "screen_get_context_property_iv(SCREEN_PROPERTY_DISPLAY_COUNT) "
                                "failed";

class DisplayReadingTest : public DisplayManagerTest
{
protected:
    const Display& read(const SubstituteScreenApi::Display& platformDisplay)
    {
        destroy();
        make({platformDisplay});
        return display(platformDisplay.id);
    }
};

TEST_F(DisplayReadingTest, IsLoggedPropertyByProperty)
{
    make(phoneAndTelevision());
    EXPECT_THAT(log.lines(),
                ElementsAre("2 display(s)", "display Id: 1", "display name: Phone",
                            "display type: 30304", "attached: 1", "detachable: 0",
                            "physical size: 53, 88", "rotation: 0", "pixel size: 768, 1280",
                            "display Id: 2", "display name: Television", "display type: 30305",
                            "attached: 0", "detachable: 1", "physical size: 0, 0", "rotation: 0",
                            "pixel size: 1920, 1080"));
}

TEST_F(DisplayReadingTest, AsksForEachPropertyOnceInOrder)
{
    make({phoneAndTelevision().front()});
    std::vector<std::string> calls;
    for (const Call& call : journal.calls()) {
        calls.push_back(call.operation.substr(call.operation.find('.') + 1) + '(' + call.arguments +
                        ')');
        EXPECT_EQ(call.errnoBefore, 0) << calls.back();
    }
    EXPECT_THAT(calls, ElementsAre("createContext(0)", "getContextPropertyIv(59)",
                                   "getContextPropertyPv(60)", "getDisplayPropertyIv(87)",
                                   "getDisplayPropertyCv(20, 128)", "getDisplayPropertyIv(47)",
                                   "getDisplayPropertyIv(64)", "getDisplayPropertyIv(65)",
                                   "getDisplayPropertyIv(69)", "getDisplayPropertyIv(38)",
                                   "getDisplayPropertyIv(40)"));
}

TEST_F(DisplayReadingTest, FillsEachDisplay)
{
    make(phoneAndTelevision());
    const Display& phone = display(1);
    EXPECT_EQ(phone.displayId(), 1);
    EXPECT_EQ(phone.displayName(), QStringLiteral("Phone"));
    EXPECT_EQ(phone.displayType(), Display::DisplayTypeInternal);
    EXPECT_TRUE(phone.isAttached());
    EXPECT_FALSE(phone.isDetachable());
    EXPECT_EQ(phone.physicalSize(), QSizeF(53, 88));
    EXPECT_EQ(phone.pixelSize(), QSize(768, 1280));
    EXPECT_EQ(phone.aspectType(), Display::Portrait);
    EXPECT_EQ(phone.resolution(), QSizeF(768 * 1000.0 / 53, 1280 * 1000.0 / 88));
    const Display& television = display(2);
    EXPECT_EQ(television.displayType(), Display::DisplayTypeExternal);
    EXPECT_FALSE(television.isAttached());
    EXPECT_TRUE(television.isDetachable());
    EXPECT_EQ(television.aspectType(), Display::Landscape);
    EXPECT_EQ(television.resolution(), QSizeF(0, 0));
    EXPECT_EQ(television.parent(), &manager());
}

TEST_F(DisplayReadingTest, FirstInternalOneIsPrimaryAndEveryOtherSecondary)
{
    Displays displays(5);
    for (std::size_t i = 0; i < displays.size(); ++i) {
        displays[i].id = static_cast<int>(10 + i);
        displays[i].type =
            i == 2 || i == 3 ? SCREEN_DISPLAY_TYPE_INTERNAL : SCREEN_DISPLAY_TYPE_EXTERNAL;
    }
    make(displays);
    EXPECT_EQ(manager().primaryDisplayId(), 12);
    EXPECT_THAT(manager().secondaryDisplayIds(), ElementsAre(10, 11, 13, 14));
}

TEST_F(DisplayReadingTest, WithoutAnInternalOneThereIsNoPrimary)
{
    make({phoneAndTelevision().back()});
    EXPECT_EQ(manager().primaryDisplayId(), -1);
    EXPECT_THAT(manager().secondaryDisplayIds(), ElementsAre(2));
}

TEST_F(DisplayReadingTest, WithoutAnyThereIsNone)
{
    make({});
    EXPECT_EQ(manager().primaryDisplayId(), -1);
    EXPECT_THAT(manager().secondaryDisplayIds(), IsEmpty());
    EXPECT_THAT(log.lines(), ElementsAre("0 display(s)"));
}

TEST_F(DisplayReadingTest, OfSeveralWithOneIdTheLastIsFound)
{
    Displays displays = phoneAndTelevision();
    displays.push_back(displays.front());
    displays.back().name = "Other phone";
    displays.back().detachable = 1;
    make(displays);
    EXPECT_EQ(display(1).displayName(), QStringLiteral("Other phone"));
    EXPECT_EQ(manager().primaryDisplayId(), 1);
    EXPECT_THAT(manager().secondaryDisplayIds(), ElementsAre(2, 1));
}

TEST_F(DisplayReadingTest, PixelSizeIsThatOfRotation0)
{
    for (const int rotation : {90, 270}) {
        const Display& turned = read({rotation, 1280, 768});
        EXPECT_EQ(turned.pixelSize(), QSize(768, 1280));
        EXPECT_EQ(turned.aspectType(), Display::Portrait);
        EXPECT_EQ(log.count("rotation: " + std::to_string(rotation)), 1);
    }
    EXPECT_EQ(log.count("pixel size: 768, 1280"), 2);
    for (const int rotation : {0, 180, 45, -90, 360}) {
        EXPECT_EQ(read({rotation, 1280, 768}).pixelSize(), QSize(1280, 768));
        EXPECT_EQ(display(1).aspectType(), Display::Landscape);
    }
    EXPECT_EQ(read({90, 720, 720}).aspectType(), Display::Square);
}

TEST_F(DisplayReadingTest, SizesAreTakenAsTheyAre)
{
    for (const auto& [width, height] : {std::pair(0, 0), std::pair(-5, 7), std::pair(huge, 1),
                                        std::pair(negative, huge), std::pair(huge, huge)}) {
        SubstituteScreenApi::Display odd{0, width, height};
        odd.physicalWidth = height;
        odd.physicalHeight = width;
        const Display& display = read(odd);
        EXPECT_EQ(display.pixelSize(), QSize(width, height));
        EXPECT_EQ(display.physicalSize(),
                  QSizeF(static_cast<float>(height), static_cast<float>(width)));
        const QSizeF resolution = display.resolution();
        EXPECT_TRUE(std::isfinite(resolution.width()) && std::isfinite(resolution.height()));
        EXPECT_EQ(resolution.width() == 0, width == 0 || height == 0);
    }
    EXPECT_EQ(read({90, negative, huge}).pixelSize(), QSize(huge, negative));
}

TEST_F(DisplayReadingTest, ResolutionIs0WhereThePhysicalExtentIs)
{
    SubstituteScreenApi::Display flat{0, 100, 200};
    flat.physicalWidth = 50;
    EXPECT_EQ(read(flat).resolution(), QSizeF(2000, 0));
    flat.physicalWidth = 0;
    flat.physicalHeight = 50;
    EXPECT_EQ(read(flat).resolution(), QSizeF(0, 4000));
}

TEST_F(DisplayReadingTest, NameOfFullLengthComesWithoutAZeroAtItsEnd)
{
    const std::string longest(Display::displayNameSize - 1, 'n');
    EXPECT_EQ(read({0, 1, 1, 1, longest}).displayName().toStdString(), longest);
    EXPECT_EQ(read({0, 1, 1, 1, longest + "nn"}).displayName().toStdString(), longest);
    EXPECT_EQ(log.count("display name: " + longest), 2);
    EXPECT_EQ(read({0, 1, 1, 1, ""}).displayName(), QString());
}

TEST_F(DisplayReadingTest, NameIsUtf8)
{
    const QString name = QString::fromUtf8("F\xC3\xBC\xC3\x9F\xE2\x82\xAC\xF0\x9F\x96\xA5");
    EXPECT_EQ(read({0, 1, 1, 1, name.toStdString()}).displayName(), name);
    const QString damaged = read({0, 1, 1, 1, "a\xC3\xFF"}).displayName();
    EXPECT_TRUE(damaged.startsWith(QLatin1Char('a')));
}

TEST_F(DisplayReadingTest, AnyNumberButZeroIsYes)
{
    SubstituteScreenApi::Display odd{0, 1, 1};
    odd.attached = -3;
    odd.detachable = 7;
    EXPECT_TRUE(read(odd).isAttached());
    EXPECT_TRUE(display(1).isDetachable());
    EXPECT_EQ(log.count("attached: -3"), 1);
    odd.type = -1;
    EXPECT_EQ(read(odd).displayType(), Display::DisplayTypeExternal);
}

TEST_F(DisplayReadingTest, DisplaysThatGoAfterTheyWereCountedAreLeftOut)
{
    screen.setCount(5);
    make(phoneAndTelevision());
    EXPECT_EQ(log.count("5 display(s)"), 1);
    EXPECT_EQ(manager().primaryDisplayId(), 1);
    EXPECT_THAT(manager().secondaryDisplayIds(), ElementsAre(2));
}

TEST_F(DisplayReadingTest, DisplaysThatComeAfterTheyWereCountedAreNotRead)
{
    screen.setCount(1);
    make(phoneAndTelevision());
    EXPECT_THAT(manager().secondaryDisplayIds(), IsEmpty());
    EXPECT_THROW(manager().getDisplay(2), tamo::Exception);
}

TEST_F(DisplayReadingTest, CountThatCannotBeIsAFailure)
{
    for (const int count : {-1, negative, huge}) {
        screen.setCount(count);
        EXPECT_THROW(make({}), tamo::Exception);
    }
    EXPECT_THAT(log.lines(), ElementsAre(tooManyLine, tooManyLine, tooManyLine));
}

TEST_F(DisplayReadingTest, AThousandDisplays)
{
    Displays displays(1000);
    for (std::size_t i = 0; i < displays.size(); ++i)
        displays[i].id = static_cast<int>(i + 1);
    make(displays);
    EXPECT_EQ(manager().secondaryDisplayIds().size(), 999);
    EXPECT_EQ(display(1000).displayId(), 1000);
}

TEST_F(DisplayReadingTest, UnknownIdIsLoggedAndThrown)
{
    make(phoneAndTelevision());
    log.clear();
    EXPECT_THROW(manager().getDisplay(7), tamo::Exception);
    EXPECT_THROW(manager().getDisplay(7), tamo::Exception);
    EXPECT_THROW(manager().getDisplay(-1), tamo::Exception);
    EXPECT_THAT(log.lines(), ElementsAre("DisplayManagerPrivate::getDisplay(): bad display ID:7",
                                         "DisplayManagerPrivate::getDisplay(): bad display ID:7",
                                         "DisplayManagerPrivate::getDisplay(): bad display ID:-1"));
    EXPECT_EQ(manager().getDisplay(1), &display(1));
    EXPECT_THAT(manager().secondaryDisplayIds(), ElementsAre(2));
}

TEST_F(DisplayReadingTest, EndsItsContext)
{
    make(phoneAndTelevision());
    EXPECT_EQ(screen.contextCount(), 1);
    destroy();
    EXPECT_EQ(screen.contextCount(), 0);
}

} // namespace
