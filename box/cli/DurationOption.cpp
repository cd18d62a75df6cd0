// SPDX-License-Identifier: Apache-2.0
#include "DurationOption.h"

#include "common/Duration.h"

namespace tamobox {

CLI::Option* addDurationOption(CLI::App& command, const std::string& name,
                               std::chrono::milliseconds& value, const std::string& description)
{
    return command
        .add_option_function<std::string>(
            name, [&value](const std::string& text) { value = *parseDuration(text); }, description)
        ->type_name("DURATION")
        ->check([](const std::string& text) {
            return parseDuration(text)
                       ? std::string()
                       : "'" + text +
                             "' is no duration; durations are like 10s, 500ms, 2m or 1h, "
                             "above 0 and at most a week";
        });
}

} // namespace tamobox
