// SPDX-License-Identifier: Apache-2.0
#ifndef PPS_UTF8_H
#define PPS_UTF8_H

#include <cstdint>

namespace pps::utf8 {

/**
 * Moves `cursor` over the characters that are not ASCII. False, with `cursor` at the first byte
 * that is wrong, where they are not well formed: a stray or missing continuation, an overlong form,
 * a surrogate, something above U+10FFFF.
 */
bool skip(const char*& cursor, const char* end);

/** Writes a code point, which is no surrogate, and returns the place after it (at most 4 bytes). */
char* append(char* to, std::uint32_t codePoint);

} // namespace pps::utf8

#endif
