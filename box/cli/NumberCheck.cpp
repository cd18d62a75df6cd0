// SPDX-License-Identifier: Apache-2.0
#include "NumberCheck.h"

#include <charconv>

namespace tamobox {

std::function<std::string(const std::string&)> wholeNumber(int lowest, int highest)
{
    return [=](const std::string& text) {
        int number = 0;
        const char* const end = text.data() + text.size();
        const auto [rest, error] = std::from_chars(text.data(), end, number);
        if (error == std::errc() && rest == end && number >= lowest && number <= highest)
            return std::string();
        return "'" + text + "' is no whole number from " + std::to_string(lowest) + " to " +
               std::to_string(highest);
    };
}

} // namespace tamobox
