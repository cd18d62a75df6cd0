// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_PAYMENT_DECIMALTEXT_H
#define TAMO_PLATFORM_PAYMENT_DECIMALTEXT_H

#include <cstdlib>
#include <limits>
#include <optional>

namespace tamo {
namespace platform {

/** Whether a text begins as atoi() reads a number, however large. */
inline bool beginsWithInteger(const char* text)
{
    char* end = nullptr;
    std::strtoll(text, &end, 10);
    return end != text;
}

/** The number that a text begins with, as atoi() reads it; none where it does not begin with one,
 * or with one that is no `int`. */
inline std::optional<int> leadingInteger(const char* text)
{
    char* end = nullptr;
    const long long number = std::strtoll(text, &end, 10);
    if (end == text || number < std::numeric_limits<int>::min() ||
        number > std::numeric_limits<int>::max())
        return std::nullopt;
    return static_cast<int>(number);
}

} // namespace platform
} // namespace tamo

#endif
