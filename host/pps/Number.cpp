// SPDX-License-Identifier: Apache-2.0
#include "Number.h"

#include <charconv>
#include <limits>

namespace pps {
namespace {

/** Any integer of so many digits fits 64 bits without a sign. */
constexpr int MaxDigits = std::numeric_limits<std::uint64_t>::digits10;

/** The digits of a number's integer part; `value` is right as long as `count` is at most MaxDigits.
 */
struct Digits
{
    std::uint64_t value = 0;
    std::ptrdiff_t count = 0;
};

bool isDigit(const char* cursor, const char* end)
{
    return cursor != end && *cursor >= '0' && *cursor <= '9';
}

const char* skipDigits(const char* cursor, const char* end)
{
    while (isDigit(cursor, end))
        ++cursor;
    return cursor;
}

Digits scanDigits(const char*& cursor, const char* end)
{
    Digits digits;
    const char* const begin = cursor;
    for (; isDigit(cursor, end); ++cursor)
        digits.value = digits.value * 10 + static_cast<std::uint64_t>(*cursor - '0');
    digits.count = cursor - begin;
    return digits;
}

/** Moves over a fraction and an exponent. Null where one begins and does not go on as it must. */
const char* skipFractionAndExponent(const char* cursor, const char* end)
{
    if (cursor != end && *cursor == '.') {
        if (!isDigit(++cursor, end))
            return nullptr;
        cursor = skipDigits(cursor, end);
    }
    if (cursor != end && (*cursor == 'e' || *cursor == 'E')) {
        ++cursor;
        if (cursor != end && (*cursor == '+' || *cursor == '-'))
            ++cursor;
        if (!isDigit(cursor, end))
            return nullptr;
        cursor = skipDigits(cursor, end);
    }
    return cursor;
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

} // namespace

const Fault* scanNumber(const char*& cursor, const char* end, Number& number)
{
    const char* const begin = cursor;
    const bool negative = cursor != end && *cursor == '-';
    if (negative)
        ++cursor;

    const bool leadingZero = cursor != end && *cursor == '0';
    const Digits digits = scanDigits(cursor, end);
    if (digits.count == 0 || (leadingZero && digits.count > 1))
        return &faults::Number;

    const char* const integerEnd = cursor;
    cursor = skipFractionAndExponent(cursor, end);
    if (!cursor)
        return &faults::Number;

    number.isInteger = cursor == integerEnd && toInteger(digits, negative, number.integer);
    if (number.isInteger)
        return nullptr;

    number.real = 0;
    const std::from_chars_result result = std::from_chars(begin, cursor, number.real);
    if (result.ec != std::errc() || (number.real == 0 && !saysZero(begin, cursor)))
        return &faults::NumberRange;
    return nullptr;
}

} // namespace pps
