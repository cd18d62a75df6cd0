// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_NUMBERCHECK_H
#define TAMOBOX_NUMBERCHECK_H

#include <functional>
#include <limits>
#include <string>

namespace tamobox {

/** What an option says of its text where that is no whole number from `lowest` to `highest`; to be
 * given to CLI::Option::check(). */
std::function<std::string(const std::string&)>
wholeNumber(int lowest, int highest = std::numeric_limits<int>::max());

} // namespace tamobox

#endif
