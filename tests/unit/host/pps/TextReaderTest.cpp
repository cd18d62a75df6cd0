// SPDX-License-Identifier: Apache-2.0
#include "TextReader.h"

#include "Malformed.h"
#include "Message.h"

#include <pps/export.h>

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <string_view>

namespace pps {
namespace {

struct Split
{
    std::string_view text;
    LineKind kind;
    std::string_view name;
    std::string_view marker;
    std::string_view value;
};

void PrintTo(const Split& row, std::ostream* stream)
{
    *stream << row.text;
}

class SplitLine : public testing::TestWithParam<Split>
{
};

TEST_P(SplitLine, HasTheseParts)
{
    for (const char* const end : {"", "\n"}) {
        const std::string text = std::string(GetParam().text) + end;
        TextReader reader(text);
        Line line;
        ASSERT_TRUE(reader.next(line)) << reader.error();
        EXPECT_EQ(line.kind, GetParam().kind);
        EXPECT_EQ(line.name, GetParam().name);
        EXPECT_EQ(line.marker, GetParam().marker);
        EXPECT_EQ(line.value, GetParam().value);
        EXPECT_EQ(line.text, GetParam().text);
        EXPECT_EQ(reader.lineNumber(), 1U);
        EXPECT_FALSE(reader.next(line));
        EXPECT_EQ(reader.error(), nullptr);
    }
}

INSTANTIATE_TEST_SUITE_P(
    TextReader, SplitLine,
    testing::Values(
        Split{"@battery", LineKind::Object, "@battery", "", ""},
        Split{"@a:n:1", LineKind::Object, "@a:n:1", "", ""},
        Split{"@@", LineKind::Object, "@@", "", ""},
        Split{"-@battery", LineKind::RemovedObject, "@battery", "", ""},
        Split{"+@control.7", LineKind::ArrivedClient, "@control.7", "", ""},
        Split{"-gone", LineKind::DeletedAttribute, "gone", "", ""},
        Split{"a::text", LineKind::Attribute, "a", "", "text"},
        Split{"a::", LineKind::Attribute, "a", "", ""},
        Split{"a::b:c::", LineKind::Attribute, "a", "", "b:c::"},
        Split{"a::\\n\\r\\\\", LineKind::Attribute, "a", "", "\\n\\r\\\\"},
        Split{"a::\t\"\x01", LineKind::Attribute, "a", "", "\t\"\x01"},
        Split{"+a:n:-1.5e3", LineKind::Attribute, "+a", "n", "-1.5e3"},
        Split{"\u65e5\u672c:b:false", LineKind::Attribute, "\u65e5\u672c", "b", "false"},
        Split{"j:json: [1, {\"a\" : null}] ", LineKind::Attribute, "j", "json",
              " [1, {\"a\" : null}] "},
        Split{"j:json:null", LineKind::Attribute, "j", "json", "null"},
        Split{"a longer name than one block::and a value that is longer, too", LineKind::Attribute,
              "a longer name than one block", "", "and a value that is longer, too"}));

class MalformedText : public testing::TestWithParam<test::MalformedLine>
{
};

TEST_P(MalformedText, IsRefusedWithAReason)
{
    // Followed by another line, so that the end of the line is not the end of the text.
    const std::string text = "@object\nfine:n:1\n" + GetParam().line + "\nfine:n:2\n";
    TextReader reader(text);
    Line line;
    EXPECT_TRUE(reader.next(line));
    EXPECT_TRUE(reader.next(line));
    EXPECT_FALSE(reader.next(line));
    ASSERT_NE(reader.error(), nullptr);
    EXPECT_STRNE(reader.error(), "");
    EXPECT_EQ(reader.lineNumber(), 3U);
    EXPECT_FALSE(reader.next(line)) << "reads on behind an error";
}

INSTANTIATE_TEST_SUITE_P(TextReader, MalformedText, testing::ValuesIn(test::MalformedLines));

TEST(TextReader, RefusesNulAnywhere)
{
    using namespace std::string_view_literals;
    for (const std::string_view text :
         {"@a\0b\n"sv, "a::\0\n"sv, "\0"sv, "a:\0:"sv, "a:json:[\0]"sv, "a:json:[\"\0\"]"sv,
          "-a\0"sv, "a:n:1\0"sv, "a:json:\0"sv}) {
        TextReader reader(text);
        Line line;
        EXPECT_FALSE(reader.next(line));
        EXPECT_NE(reader.error(), nullptr);
    }
}

TEST(TextReader, FindsNoLinesInAnEmptyText)
{
    TextReader reader({});
    Line line;
    EXPECT_FALSE(reader.next(line));
    EXPECT_EQ(reader.error(), nullptr);
    EXPECT_EQ(reader.lineNumber(), 0U);
}

TEST(TextReader, LimitsTheDepthOfAnAttribute)
{
    const auto nested = [](std::size_t depth) {
        return "j:json:" + std::string(depth, '[') + std::string(depth, ']');
    };
    Line line;
    const std::string deep = nested(PPS_MAX_DEPTH);
    EXPECT_TRUE(TextReader(deep).next(line));

    const std::string tooDeep = nested(PPS_MAX_DEPTH + 1);
    TextReader reader(tooDeep);
    EXPECT_FALSE(reader.next(line));
    EXPECT_STREQ(reader.error(), "nested too deeply");
}

TEST(TextReader, AgreesWithTheDecoderAboutEveryTruncation)
{
    const std::string text =
        "@o\na::x\\ny\\\\\nn:n:-1.5e+3\nb:b:true\n-gone\n-@other\n+@o.1\npid:n:12\n"
        "j:json:{\"\\ud83d\\ude00\":[1,2.5e1,true,false,null,{}]}\nu::\u65e5\u672c\n";
    for (std::size_t size = 0; size <= text.size(); ++size) {
        const std::string part = text.substr(0, size);
        TextReader reader(part);
        Line line;
        while (reader.next(line)) {
        }
        test::Decoder decoder(part);
        EXPECT_EQ(decoder.result() == 0, reader.error() == nullptr) << part;
        std::size_t lineNumber = 0;
        EXPECT_STREQ(pps_decoder_error(decoder, &lineNumber), reader.error()) << part;
        if (reader.error()) {
            EXPECT_EQ(lineNumber, reader.lineNumber());
        }
    }
}

} // namespace
} // namespace pps
