// SPDX-License-Identifier: Apache-2.0
#include "cli/TextTable.h"

#include "common/Printable.h"

#include <gmock/gmock.h>

using namespace tamobox;
using namespace testing;

namespace {

TEST(TextTableTest, CellsOfAColumnStandBelowEachOther)
{
    EXPECT_THAT(tableLines({{"id", "name", ""}, {"1234", "\xC3\xA4", "x"}, {"", "long", ""}}),
                ElementsAre("id    name\n", "1234  \xC3\xA4     x\n", "      long\n"));
    EXPECT_THAT(tableLines({}), IsEmpty());
}

TEST(PrintableTest, ControlCharactersOfTheSecondSetAreReplacedToo)
{
    EXPECT_EQ(printable("a\xc2\x80z\xc2\x9f"), "a?z?");
    EXPECT_EQ(printable("\xc2\xa0\xc3\x80\xc2"), "\xc2\xa0\xc3\x80\xc2");
    EXPECT_FALSE(isPrintable("\xc2\x9b"));
    EXPECT_TRUE(isPrintable("\xc3\x84 \xe2\x82\xac"));
}

TEST(PrintableTest, ControlCharactersAreReplaced)
{
    EXPECT_EQ(printable("a\nb\x1b[31m\x7f"), "a?b?[31m?");
    EXPECT_EQ(printable("\xC3\xA4"), "\xC3\xA4");
}

} // namespace
