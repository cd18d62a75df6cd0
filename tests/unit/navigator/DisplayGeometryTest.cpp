// SPDX-License-Identifier: Apache-2.0
#include "navigator/DisplayGeometry.h"

#include "SubstitutePlatform.h"

#include <gmock/gmock.h>

using namespace tamotest;
using namespace testing;
using tamo::DisplayGeometry;

namespace {

const std::string begin = "NavigatorPrivate::NavigatorPrivate - ";
screen_context_t const theContext = reinterpret_cast<screen_context_t>(std::uintptr_t{1});

class DisplayGeometryTest : public PlatformTest
{
protected:
    DisplayGeometry readWith(const SubstituteScreenApi::Display& display)
    {
        platform.screen().setDisplays({display});
        return DisplayGeometry::read();
    }

    void expectLines(std::vector<std::string> lines)
    {
        for (std::string& line : lines)
            line.insert(0, begin);
        EXPECT_EQ(log.lines(), lines);
        log.clear();
    }
};

TEST_F(DisplayGeometryTest, IsReadFromTheFirstDisplay)
{
    platform.screen().setDisplays({{90, 1280, 768}, {0, 1920, 1080}});
    const DisplayGeometry geometry = DisplayGeometry::read();
    EXPECT_EQ(geometry.angle, 90);
    EXPECT_FALSE(geometry.isNaturalLandscape);
    expectLines({"width=1280", "height=768", "angle=90"});
    std::vector<std::string> calls;
    for (const Call& call : journal.calls())
        calls.push_back(call.operation + '(' + call.arguments + ')');
    EXPECT_THAT(calls,
                ElementsAre("screenApi.createContext(0)", "screenApi.getContextPropertyIv(59)",
                            "screenApi.getContextPropertyPv(60)",
                            "screenApi.getDisplayPropertyIv(38)",
                            "screenApi.getDisplayPropertyIv(40)", "screenApi.destroyContext()"));
}

TEST_F(DisplayGeometryTest, IsLandscapeWhereItIsWiderThanHighAtAngle0)
{
    for (const int angle : {0, 180}) {
        EXPECT_TRUE(readWith({angle, 1024, 600}).isNaturalLandscape);
        EXPECT_FALSE(readWith({angle, 600, 1024}).isNaturalLandscape);
    }
    for (const int angle : {90, 270}) {
        EXPECT_FALSE(readWith({angle, 1024, 600}).isNaturalLandscape);
        EXPECT_TRUE(readWith({angle, 600, 1024}).isNaturalLandscape);
    }
    for (const int angle : {0, 90, 180, 270})
        EXPECT_FALSE(readWith({angle, 720, 720}).isNaturalLandscape);
}

TEST_F(DisplayGeometryTest, AnyOtherAngleIsLoggedAndKept)
{
    for (const int angle : {45, -90, 360}) {
        const DisplayGeometry geometry = readWith({angle, 1024, 600});
        EXPECT_EQ(geometry.angle, angle);
        EXPECT_FALSE(geometry.isNaturalLandscape);
        expectLines({"exlpode7", "width=1024", "height=600", "angle=" + std::to_string(angle)});
    }
}

/** A call that fails: which it is, and what is logged. */
struct Failure
{
    std::string operation;
    int nth;
    std::vector<std::string> lines;
};

class DisplayGeometryFailureTest : public DisplayGeometryTest,
                                   public WithParamInterface<std::tuple<Failure, int>>
{
};

TEST_P(DisplayGeometryFailureTest, IsLoggedAndReadingGoesOn)
{
    const auto& [failure, error] = GetParam();
    journal.fail("screenApi." + failure.operation, failure.nth, error);
    // Every call but the one that fails comes all the same.
    readWith({90, 1280, 768});
    expectLines(failure.lines);
    EXPECT_EQ(journal.calls().size(), 6u);
    for (const Call& call : journal.calls())
        EXPECT_EQ(call.errnoBefore, 0) << call.operation;
    // What the failed call left undone.
    if (failure.operation == "destroyContext") {
        EXPECT_EQ(platform.screen().destroyContext(theContext), 0);
    }
}

// Without a context or a display, the calls that need it fail, too.
const Failure failures[] = {
    {"createContext",
     1,
     {"exlpode1", "exlpode2", "exlpode3", "exlpode4", "exlpode5", "exlpode6", "width=0", "height=0",
      "angle=0"}},
    {"getContextPropertyIv", 1, {"exlpode2", "width=1280", "height=768", "angle=90"}},
    {"getContextPropertyPv",
     1,
     {"exlpode3", "exlpode4", "exlpode5", "width=0", "height=0", "angle=0"}},
    {"getDisplayPropertyIv", 1, {"exlpode4", "width=1280", "height=768", "angle=0"}},
    {"getDisplayPropertyIv", 2, {"exlpode5", "width=0", "height=0", "angle=90"}},
    {"destroyContext", 1, {"exlpode6", "width=1280", "height=768", "angle=90"}},
};

std::string nameOf(const TestParamInfo<std::tuple<Failure, int>>& info)
{
    const auto& [failure, error] = info.param;
    return failure.operation + std::to_string(failure.nth) +
           (error != 0 ? "WithErrno" : "WithoutErrno");
}

INSTANTIATE_TEST_SUITE_P(, DisplayGeometryFailureTest, Combine(ValuesIn(failures), Values(EIO, 0)),
                         nameOf);

TEST_F(DisplayGeometryTest, WithoutDisplaysThereIsNone)
{
    platform.screen().setDisplays({});
    const DisplayGeometry geometry = DisplayGeometry::read();
    EXPECT_EQ(geometry.angle, 0);
    expectLines({"exlpode4", "exlpode5", "width=0", "height=0", "angle=0"});
}

TEST_F(DisplayGeometryTest, HandlesThatComeAfterTheirCountFailedFindRoom)
{
    platform.screen().setDisplays({{90, 1280, 768}, {0, 1920, 1080}, {0, 1920, 1080}});
    journal.fail("screenApi.getContextPropertyIv");
    EXPECT_EQ(DisplayGeometry::read().angle, 90);
    expectLines({"exlpode2", "width=1280", "height=768", "angle=90"});
}

} // namespace
