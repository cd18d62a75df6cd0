// SPDX-License-Identifier: Apache-2.0
#ifndef SCREEN_DISPLAYNAME_H
#define SCREEN_DISPLAYNAME_H

#include <cstddef>
#include <string_view>

namespace screen {

/** As much of a UTF-8 text as goes into some bytes and ends with a whole character. */
std::string_view cutToFit(std::string_view text, std::size_t size);

} // namespace screen

#endif
