// SPDX-License-Identifier: Apache-2.0
#include "Message.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <ostream>
#include <random>
#include <string>

namespace {

using test::Decoder;

struct ReadNumber
{
    const char* text;
    double real;
    std::optional<std::int64_t> wide; ///< none: ERANGE
    std::optional<int> integer;       ///< none: ERANGE
};

void PrintTo(const ReadNumber& row, std::ostream* stream)
{
    *stream << row.text;
}

class NumberRead : public testing::TestWithParam<ReadNumber>
{
};

template<class Integer>
void expectInteger(int result, Integer read, const std::optional<Integer>& expected)
{
    EXPECT_EQ(result, expected ? 0 : -1);
    if (expected)
        EXPECT_EQ(read, *expected);
    else
        EXPECT_EQ(errno, ERANGE);
}

TEST_P(NumberRead, IsTheSameOnALineAndInJson)
{
    const std::string text = GetParam().text;
    Decoder decoder("x:n:" + text + "\nj:json:{\"x\":" + text + "}\n");
    ASSERT_EQ(decoder.result(), 0) << pps_decoder_error(decoder, nullptr);
    for (int place = 0; place < 2; ++place) {
        double real = 1;
        ASSERT_EQ(pps_decoder_get_double(decoder, "x", &real), 0);
        EXPECT_EQ(real, GetParam().real);
        EXPECT_EQ(std::signbit(real), std::signbit(GetParam().real));

        std::int64_t wide = 0;
        const int wideResult = pps_decoder_get_int64(decoder, "x", &wide);
        expectInteger(wideResult, wide, GetParam().wide);
        int integer = 0;
        const int integerResult = pps_decoder_get_int(decoder, "x", &integer);
        expectInteger(integerResult, integer, GetParam().integer);
        pps_decoder_push(decoder, "j");
    }
}

constexpr std::nullopt_t No = std::nullopt;

INSTANTIATE_TEST_SUITE_P(
    Decoder, NumberRead,
    testing::Values(
        ReadNumber{"0", 0.0, 0, 0}, ReadNumber{"-0", -0.0, 0, 0}, ReadNumber{"-0.0", -0.0, 0, 0},
        ReadNumber{"0.0e-999999999999", 0.0, 0, 0},
        ReadNumber{"0e+99999999999999999999", 0.0, 0, 0}, ReadNumber{"5", 5, 5, 5},
        ReadNumber{"-5", -5, -5, -5}, ReadNumber{"5.0", 5, 5, 5}, ReadNumber{"50E-1", 5, 5, 5},
        ReadNumber{"5e0", 5, 5, 5}, ReadNumber{"1e3", 1000, 1000, 1000},
        ReadNumber{"0.5", 0.5, No, No}, ReadNumber{"-0.1", -0.1, No, No},
        ReadNumber{"1e-7", 1e-7, No, No},
        ReadNumber{"2147483647", 2147483647, 2147483647, 2147483647},
        ReadNumber{"2147483648", 2147483648.0, 2147483648, No},
        ReadNumber{"-2147483648", -2147483648.0, -2147483648, INT32_MIN},
        ReadNumber{"-2147483649", -2147483649.0, -2147483649, No},
        ReadNumber{"9007199254740993", 9007199254740992.0, 9007199254740993, No},
        ReadNumber{"9223372036854775807", 9223372036854775808.0, INT64_MAX, No},
        ReadNumber{"9223372036854775808", 9223372036854775808.0, No, No},
        ReadNumber{"-9223372036854775808", -9223372036854775808.0, INT64_MIN, No},
        ReadNumber{"-9223372036854775809", -9223372036854775808.0, No, No},
        ReadNumber{"9999999999999999999", 1e19, No, No},
        ReadNumber{"18446744073709551616", 18446744073709551616.0, No, No},
        ReadNumber{"1e300", 1e300, No, No}, ReadNumber{"1.7976931348623157e308", DBL_MAX, No, No},
        ReadNumber{"4.9406564584124654e-324", DBL_TRUE_MIN, No, No},
        ReadNumber{"2.4703282292062328e-324", DBL_TRUE_MIN, No, No},
        ReadNumber{"0.1000000000000000055511151231257827021181583404541015625", 0.1, No, No},
        ReadNumber{"123456789012345678901234567890", 123456789012345678901234567890.0, No, No},
        ReadNumber{"0.0000000000000000000001", 1e-22, No, No},
        ReadNumber{"8.000000000000000001", 8, 8, 8},
        ReadNumber{"1.0000000000000000000000000000", 1, 1, 1}));

TEST(Decoder, RoundsEveryDecimalCorrectly)
{
    std::mt19937_64 random(42);
    for (int count = 0; count < 200000; ++count) {
        // Around the length where a division of exact numbers no longer does.
        std::string text = std::to_string(random() >> random() % 64);
        if (random() % 4 != 0)
            text.insert(random() % text.size() + 1, ".");
        if (text.back() == '.')
            text += '0';
        if (random() % 4 == 0)
            text += "e" + std::to_string(static_cast<int>(random() % 600) - 300);
        if (text.size() > 1 && text[0] == '0' && text[1] != '.')
            continue;
        const double expected = std::strtod(text.c_str(), nullptr);
        Decoder decoder("x:n:" + text);
        if (std::isinf(expected)) {
            EXPECT_EQ(decoder.result(), -1) << text;
            continue;
        }
        double read = 0;
        ASSERT_EQ(pps_decoder_get_double(decoder, "x", &read), 0) << text;
        ASSERT_EQ(read, expected) << text;
    }
}

} // namespace
