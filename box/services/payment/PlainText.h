// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_PLAINTEXT_H
#define TAMOBOX_PLAINTEXT_H

#include <algorithm>
#include <string>

namespace tamobox {

/** Whether a text is without control characters: a NUL would end a message's text, and a terminal
 * obeys others. */
inline bool isPlain(const std::string& text)
{
    return std::none_of(text.begin(), text.end(),
                        [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7f'; });
}

} // namespace tamobox

#endif
