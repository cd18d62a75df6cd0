// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_PRINTABLE_H
#define TAMOBOX_PRINTABLE_H

#include <cstddef>
#include <string>

namespace tamobox {

/** How many bytes a control character takes that begins at a place of a UTF-8 text; 0 where none
 * does. A NUL would end a message's text, and a terminal obeys others. */
inline std::size_t controlCharacterAt(const std::string& text, std::size_t place)
{
    const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char first = byteAt(place);
    if (first < ' ' || first == 0x7f)
        return 1;
    // U+0080 to U+009F
    const bool isSecondSet = first == 0xc2 && place + 1 < text.size() && byteAt(place + 1) < 0xa0;
    return isSecondSet ? 2 : 0;
}

/** Whether a text is without control characters. */
inline bool isPrintable(const std::string& text)
{
    for (std::size_t i = 0; i < text.size(); ++i)
        if (controlCharacterAt(text, i) != 0)
            return false;
    return true;
}

/** A text of somebody else's on one line of a terminal: question marks stand for control
 * characters. */
inline std::string printable(const std::string& text)
{
    std::string shown;
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t size = controlCharacterAt(text, i);
        shown += size == 0 ? text[i] : '?';
        i += size == 0 ? 1 : size;
    }
    return shown;
}

} // namespace tamobox

#endif
