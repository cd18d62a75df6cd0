// SPDX-License-Identifier: Apache-2.0
#ifndef PPS_UTF8_H
#define PPS_UTF8_H

#include <cstddef>
#include <cstdint>

namespace pps::utf8 {

/**
 * The length in bytes of the well-formed UTF-8 sequence at `cursor`, which is not ASCII and not
 * `end`. 0 where there is none: a stray or missing continuation, an overlong form, a surrogate,
 * something above U+10FFFF.
 */
std::size_t sequenceLength(const char* cursor, const char* end);

/** Writes a code point, which is no surrogate, and returns the place after it (at most 4 bytes). */
char* append(char* to, std::uint32_t codePoint);

} // namespace pps::utf8

#endif
