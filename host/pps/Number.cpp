// SPDX-License-Identifier: Apache-2.0
#include "Number.h"

#include <cfloat>
#include <charconv>
#include <cstddef>
#include <limits>

namespace pps {
namespace {

/** Any integer of so many digits fits 64 bits without a sign. */
constexpr int MaxDigits = std::numeric_limits<std::uint64_t>::digits10;

/** The powers of ten that a double holds exactly. */
constexpr double PowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                  1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                  1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

/** A number's digits as an integer; `value` is right as long as `count` is at most MaxDigits. */
struct Digits
{
    std::uint64_t value = 0;
    std::ptrdiff_t count = 0;

    /** Adds the digits at `cursor` and returns the place behind them. */
    const char* take(const char* cursor, const char* end)
    {
        const char* const begin = cursor;
        for (; cursor != end && *cursor >= '0' && *cursor <= '9'; ++cursor)
            value = value * 10 + static_cast<std::uint64_t>(*cursor - '0');
        count += cursor - begin;
        return cursor;
    }
};

/** Moves over an exponent, if there is one. Null where one begins and does not go on as it must. */
const char* skipExponent(const char* cursor, const char* end)
{
    if (cursor == end || (*cursor != 'e' && *cursor != 'E'))
        return cursor;
    ++cursor;
    if (cursor != end && (*cursor == '+' || *cursor == '-'))
        ++cursor;
    Digits digits;
    cursor = digits.take(cursor, end);
    return digits.count != 0 ? cursor : nullptr;
}

/** Whether a number's text says zero: whether all digits before an exponent are zeros. */
bool saysZero(const char* cursor, const char* end)
{
    for (; cursor != end && *cursor != 'e' && *cursor != 'E'; ++cursor) {
        if (*cursor >= '1' && *cursor <= '9')
            return false;
    }
    return true;
}

/** Takes the digits as an integer. False where that loses something: the range, or the sign of 0.
 */
bool toInteger(const Digits& digits, bool negative, std::int64_t& integer)
{
    constexpr auto Max = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    if (digits.count > MaxDigits || digits.value > Max + (negative ? 1 : 0))
        return false;
    if (negative && digits.value == 0)
        return false;
    integer = static_cast<std::int64_t>(negative ? 0 - digits.value : digits.value);
    return true;
}

/**
 * Converts digits with a decimal point before the last `decimals` of them. False where one division
 * of exact numbers does not do it: it is rounded correctly, but not two roundings in a row.
 */
bool toReal(const Digits& digits, std::ptrdiff_t decimals, bool negative, double& real)
{
    constexpr std::uint64_t MaxExact = std::uint64_t(1) << std::numeric_limits<double>::digits;
    if (FLT_EVAL_METHOD != 0 || digits.count > MaxDigits || digits.value > MaxExact)
        return false;
    // MaxDigits keeps `decimals` within the table.
    real = static_cast<double>(digits.value) / PowersOfTen[decimals];
    real = negative ? -real : real;
    return true;
}

/** Converts any number's text, exactly but slowly. */
const Fault* convert(const char* begin, const char* end, double& real)
{
    real = 0;
    const std::from_chars_result result = std::from_chars(begin, end, real);
    if (result.ec != std::errc() || (real == 0 && !saysZero(begin, end)))
        return &faults::NumberRange;
    return nullptr;
}

} // namespace

const Fault* scanNumber(const char*& cursor, const char* end, Number& number)
{
    const char* const begin = cursor;
    const bool negative = cursor != end && *cursor == '-';
    const char* place = cursor + (negative ? 1 : 0);

    Digits digits;
    const bool leadingZero = place != end && *place == '0';
    place = digits.take(place, end);
    if (digits.count == 0 || (leadingZero && digits.count > 1))
        return &faults::Number;

    const std::ptrdiff_t integerCount = digits.count;
    const bool hasFraction = place != end && *place == '.';
    if (hasFraction) {
        place = digits.take(place + 1, end);
        if (digits.count == integerCount)
            return &faults::Number;
    }

    const char* const mantissaEnd = place;
    place = skipExponent(place, end);
    if (!place)
        return &faults::Number;
    cursor = place;

    const bool hasExponent = place != mantissaEnd;
    number.isInteger = !hasFraction && !hasExponent && toInteger(digits, negative, number.integer);
    if (number.isInteger)
        return nullptr;
    if (!hasExponent && toReal(digits, digits.count - integerCount, negative, number.real))
        return nullptr;
    return convert(begin, place, number.real);
}

} // namespace pps
