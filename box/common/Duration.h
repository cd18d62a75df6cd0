// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_DURATION_H
#define TAMOBOX_DURATION_H

#include <chrono>
#include <optional>
#include <string>

namespace tamobox {

/** The longest duration that a command takes: a week. */
inline constexpr std::chrono::milliseconds longestDuration = std::chrono::hours(24 * 7);

/**
 * Reads a duration as people type it: a decimal number and a unit, such as `10s`, `1.5s`, `500ms`,
 * `2m`, `1h` or `7d`, without space between. It is rounded to the nearest millisecond.
 *
 * @return nothing where the text is anything else, or where the duration is not between one
 *         millisecond and the longest
 */
std::optional<std::chrono::milliseconds>
parseDuration(const std::string& text, std::chrono::milliseconds longest = longestDuration);

} // namespace tamobox

#endif
