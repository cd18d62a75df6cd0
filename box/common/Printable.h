// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_PRINTABLE_H
#define TAMOBOX_PRINTABLE_H

#include <algorithm>
#include <string>

namespace tamobox {

/** A text of somebody else's on one line of a terminal, which would obey some of it: question marks
 * stand for control characters. */
inline std::string printable(std::string text)
{
    const auto isControl = [](char c) {
        return static_cast<unsigned char>(c) < ' ' || c == '\x7f';
    };
    std::replace_if(text.begin(), text.end(), isControl, '?');
    return text;
}

} // namespace tamobox

#endif
