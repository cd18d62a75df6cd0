// SPDX-License-Identifier: Apache-2.0
#include "Utf8.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace pps {
namespace {

/** Whether the text, which is not ASCII, is one well-formed sequence after the other. */
bool isAccepted(const std::string& text)
{
    // On the heap and no longer than this, so that a sanitizer sees what is read beyond it.
    const std::vector<char> bytes(text.begin(), text.end());
    const char* cursor = bytes.data();
    const char* const end = cursor + bytes.size();
    return utf8::skip(cursor, end) && cursor == end;
}

std::string encoded(std::uint32_t codePoint)
{
    char bytes[4];
    return {bytes, utf8::append(bytes, codePoint)};
}

TEST(Utf8, AcceptsEveryCodePointButSurrogates)
{
    for (std::uint32_t codePoint = 0x80; codePoint <= 0x10FFFF; ++codePoint) {
        const bool isSurrogate = codePoint >= 0xD800 && codePoint < 0xE000;
        ASSERT_EQ(isAccepted(encoded(codePoint)), !isSurrogate) << std::hex << codePoint;
    }
    EXPECT_FALSE(isAccepted(encoded(0x110000)));
}

TEST(Utf8, WritesTheStandardForms)
{
    EXPECT_EQ(encoded('A'), "A");
    EXPECT_EQ(encoded(0x7F), "\x7f");
    EXPECT_EQ(encoded(0x80), "\xc2\x80");
    EXPECT_EQ(encoded(0x20AC), "\xe2\x82\xac");
    EXPECT_EQ(encoded(0x1F600), "\xf0\x9f\x98\x80");
}

TEST(Utf8, RefusesWhatIsNotWellFormed)
{
    for (const char* const text : {"\x80",
                                   "\xbf",
                                   "\xc0\x80",
                                   "\xc1\xbf",
                                   "\xc2",
                                   "\xc2\x41",
                                   "\xc2\xc2",
                                   "\xe0\x80\x80",
                                   "\xe0\x9f\xbf",
                                   "\xe2\x82",
                                   "\xe2\x82\x41",
                                   "\xed\xa0\x80",
                                   "\xed\xbf\xbf",
                                   "\xf0\x80\x80\x80",
                                   "\xf0\x8f\xbf\xbf",
                                   "\xf0\x9f\x98",
                                   "\xf0\x9f\x98\x41",
                                   "\xf4\x90\x80\x80",
                                   "\xf5\x80\x80\x80",
                                   "\xff",
                                   "\xfe",
                                   "\xc3\xa4\x80",
                                   "\xf8\x88\x80\x80\x80"})
        EXPECT_FALSE(isAccepted(text)) << text;
}

TEST(Utf8, StopsAtAscii)
{
    const std::string text = "\u00e4\u65e5x\xff";
    const char* cursor = text.data();
    EXPECT_TRUE(utf8::skip(cursor, text.data() + text.size()));
    EXPECT_EQ(*cursor, 'x');
}

} // namespace
} // namespace pps
