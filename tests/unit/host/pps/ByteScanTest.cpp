// SPDX-License-Identifier: Apache-2.0
#include "ByteScan.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace pps {
namespace {

constexpr auto special = [](auto block) {
    return block.equal('"') | block.equal('\\') | block.below(' ') | block.notAscii();
};

bool isSpecial(char character)
{
    return character == '"' || character == '\\' || static_cast<unsigned char>(character) < ' ' ||
           static_cast<unsigned char>(character) >= 0x80;
}

template<class Block>
class ByteScan : public testing::Test
{
};

#ifdef __SSE2__
using Blocks = testing::Types<WordBlock, SseBlock>;
#else
using Blocks = testing::Types<WordBlock>;
#endif

struct BlockName
{
    template<class Block>
    static std::string GetName(int)
    {
        return std::to_string(Block::Size) + "Bytes";
    }
};
TYPED_TEST_SUITE(ByteScan, Blocks, BlockName);

TYPED_TEST(ByteScan, FindsEveryByteAtEveryPlaceInEveryLength)
{
    for (std::size_t length = 0; length <= 40; ++length) {
        // On the heap and no longer than this, so that a sanitizer sees what is read beyond it.
        std::vector<char> text(length, 'a');
        const char* const end = text.data() + length;
        EXPECT_EQ(find<TypeParam>(text.data(), end, special), end);
        for (std::size_t place = 0; place < length; ++place) {
            for (int byte = 0; byte < 256; ++byte) {
                text[place] = static_cast<char>(byte);
                const char* const expected = isSpecial(text[place]) ? text.data() + place : end;
                ASSERT_EQ(find<TypeParam>(text.data(), end, special), expected)
                    << "byte " << byte << " at " << place << " of " << length;
            }
            text[place] = 'a';
        }
    }
}

TYPED_TEST(ByteScan, FindsTheFirstOfSeveral)
{
    // Neighbours just above and below what matches, whose bits could be borrowed from each other.
    const std::string neighbours = " !#[]\x7f\x1f\x80\"\\\x20\x1f";
    for (std::size_t first = 0; first < neighbours.size(); ++first) {
        for (std::size_t second = 0; second < neighbours.size(); ++second) {
            std::string text(16, 'a');
            text[6] = neighbours[first];
            text[7] = neighbours[second];
            text[8] = '"';
            const std::size_t expected = isSpecial(text[6]) ? 6 : isSpecial(text[7]) ? 7 : 8;
            EXPECT_EQ(find<TypeParam>(text.data(), text.data() + text.size(), special),
                      text.data() + expected);
        }
    }
}

TYPED_TEST(ByteScan, LoadsExactlyThePart)
{
    constexpr auto size = static_cast<std::size_t>(TypeParam::Size);
    const std::string text = "abcdefghijklmnopqrstuvwxyz";
    for (std::size_t count = 0; count < size; ++count) {
        const std::vector<char> part(text.data(), text.data() + count);
        char stored[16] = {};
        TypeParam::loadPart(part.data(), static_cast<std::ptrdiff_t>(count)).store(stored);
        EXPECT_EQ(std::string(stored, size),
                  text.substr(0, count) + std::string(size - count, '\0'));
    }
}

} // namespace
} // namespace pps
