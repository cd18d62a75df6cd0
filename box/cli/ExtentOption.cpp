// SPDX-License-Identifier: Apache-2.0
#include "ExtentOption.h"

#include <charconv>

namespace tamobox {

std::optional<Extent> parseExtent(const std::string& text, int least)
{
    Extent extent;
    const char* const end = text.data() + text.size();
    const auto width = std::from_chars(text.data(), end, extent.width);
    if (width.ec != std::errc() || width.ptr == end || *width.ptr != 'x')
        return std::nullopt;
    const auto height = std::from_chars(width.ptr + 1, end, extent.height);
    if (height.ec != std::errc() || height.ptr != end)
        return std::nullopt;
    if (extent.width < least || extent.height < least)
        return std::nullopt;
    return extent;
}

CLI::Option* addExtentOption(CLI::App& command, const std::string& name,
                             std::optional<Extent>& value, int least,
                             const std::string& description)
{
    return command
        .add_option_function<std::string>(
            name, [&value, least](const std::string& text) { value = parseExtent(text, least); },
            description)
        ->type_name("WxH")
        ->check([least](const std::string& text) {
            return parseExtent(text, least)
                       ? std::string()
                       : "'" + text + "' is no size; sizes are like 1920x1080, two whole numbers " +
                             (least > 0 ? "above 0" : "of 0 or above");
        });
}

} // namespace tamobox
