// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_REQUESTVALUES_H
#define TAMOBOX_REQUESTVALUES_H

#include "pps/MessageReader.h"

#include <cstddef>
#include <limits>
#include <optional>
#include <string>

namespace tamobox {

/** The longest text that a service takes where it sets no narrower limit, in bytes. */
inline constexpr std::size_t longestText = 65'536;

// The values of a request, from the container in which the reader stands. One that is missing where
// it is required, of another type or out of its range throws Failure, with its name and what it has
// to be.

std::string requiredText(const MessageReader& request, const char* name,
                         std::size_t longest = longestText);
std::optional<std::string> optionalText(const MessageReader& request, const char* name,
                                        std::size_t longest = longestText);
bool requiredFlag(const MessageReader& request, const char* name);
int requiredInteger(const MessageReader& request, const char* name, int lowest, int highest);
std::optional<int> optionalInteger(const MessageReader& request, const char* name,
                                   int lowest = std::numeric_limits<int>::min(),
                                   int highest = std::numeric_limits<int>::max());

/** `angle`: 0, 90, 180 or 270. */
int requiredAngle(const MessageReader& request);

} // namespace tamobox

#endif
