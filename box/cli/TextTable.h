// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_TEXTTABLE_H
#define TAMOBOX_TEXTTABLE_H

#include <cstdint>
#include <string>
#include <vector>

namespace tamobox {

/**
 * Lines of a table, each with its line end, in whose columns the cells stand one below the other.
 *
 * @param rows the headings first; all of the same length, of printable UTF-8
 */
std::vector<std::string> tableLines(const std::vector<std::vector<std::string>>& rows);

/** A cell with any text: printable, and cut with "..." where it is long. */
std::string tableCell(const std::string& text);

/** A moment in the machine's local time. @param milliseconds since the epoch */
std::string localTimeText(std::int64_t milliseconds);

} // namespace tamobox

#endif
