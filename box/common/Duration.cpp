// SPDX-License-Identifier: Apache-2.0
#include "Duration.h"

#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

namespace tamobox {

namespace {

struct Unit
{
    std::string_view name;
    double milliseconds;
};

constexpr std::array<Unit, 5> units = {
    {{"ms", 1}, {"s", 1000}, {"m", 60'000}, {"h", 3'600'000}, {"d", 86'400'000}}};

} // namespace

std::optional<std::chrono::milliseconds> parseDuration(const std::string& text,
                                                       std::chrono::milliseconds longest)
{
    double number = 0;
    const char* const end = text.data() + text.size();
    const auto [unitBegin, error] =
        std::from_chars(text.data(), end, number, std::chars_format::fixed);
    if (error != std::errc())
        return std::nullopt;
    const std::string_view unitName(unitBegin, static_cast<std::size_t>(end - unitBegin));
    for (const Unit& unit : units) {
        if (unitName != unit.name)
            continue;
        const double milliseconds = std::round(number * unit.milliseconds);
        // Written so that NaN, which from_chars reads too, is refused.
        if (!(milliseconds >= 1 && milliseconds <= static_cast<double>(longest.count())))
            return std::nullopt;
        return std::chrono::milliseconds(static_cast<long long>(milliseconds));
    }
    return std::nullopt;
}

} // namespace tamobox
