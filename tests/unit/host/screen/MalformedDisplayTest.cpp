// SPDX-License-Identifier: Apache-2.0
// Displays that are left out, each between two that are not.
#include "ScreenContext.h"

using namespace tamotest;
using namespace testing;

namespace {

class MalformedDisplayTest : public TestWithParam<std::string>
{
};

TEST_P(MalformedDisplayTest, IsLeftOutAndHarmsNoOther)
{
    const PpsFilesystem pps;
    const ScreenContext context;
    publishDisplays(display(1) + ',' + GetParam() + ',' + display(3));
    EXPECT_EQ(idsOf(context.displays()), (std::vector{1, 3}));
}

INSTANTIATE_TEST_SUITE_P(
    , MalformedDisplayTest,
    Values("2", "null", "\"display\"", "[]", "{}", R"({"width":1,"height":1})",
           R"({"id":2,"height":1})", R"({"id":2,"width":1})", R"({"id":0,"width":1,"height":1})",
           R"({"id":-2,"width":1,"height":1})", R"({"id":2.5,"width":1,"height":1})",
           R"({"id":"2","width":1,"height":1})", R"({"id":4294967298,"width":1,"height":1})",
           R"({"id":2,"width":0,"height":1})", R"({"id":2,"width":1,"height":-1})",
           R"({"id":2,"width":1e300,"height":1})", display(1), display(2, R"(,"type":"huge")"),
           display(2, R"(,"type":1)"), display(2, R"(,"name":1)"), display(2, R"(,"attached":1)"),
           display(2, R"(,"attached":null)"), display(2, R"(,"detachable":"yes")"),
           display(2, R"(,"rotation":45)"), display(2, R"(,"rotation":360)"),
           display(2, R"(,"rotation":-90)"), display(2, R"(,"rotation":"90")"),
           display(2, R"(,"physicalWidth":-1)"), display(2, R"(,"physicalHeight":0.5)")));

} // namespace
