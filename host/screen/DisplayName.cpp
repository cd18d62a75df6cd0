// SPDX-License-Identifier: Apache-2.0
#include "DisplayName.h"

namespace screen {

std::string_view cutToFit(std::string_view text, std::size_t size)
{
    if (text.size() <= size)
        return text;
    const auto isContinuation = [&](std::size_t index) {
        return (static_cast<unsigned char>(text[index]) & 0xC0) == 0x80;
    };
    while (size > 0 && isContinuation(size))
        --size;
    return text.substr(0, size);
}

} // namespace screen
