// SPDX-License-Identifier: Apache-2.0
#ifndef PPS_BYTESCAN_H
#define PPS_BYTESCAN_H

#include "WordBlock.h"
#ifdef __SSE2__
#include "SseBlock.h"
#endif

#include <cstddef>

namespace pps {

/**
 * Some bytes of text that are looked at together. The two kinds have the same interface; matchers,
 * generic lambdas from a block to its mask, work with either.
 */
#ifdef __SSE2__
using Block = SseBlock;
#else
using Block = WordBlock;
#endif

/** The first byte in the text that the matcher matches, or `end`. */
template<class Block = Block, class Matcher>
const char* find(const char* cursor, const char* end, Matcher matcher)
{
    for (; end - cursor >= Block::Size; cursor += Block::Size) {
        if (const auto mask = matcher(Block::load(cursor)))
            return cursor + mask.first();
    }
    const std::ptrdiff_t rest = end - cursor;
    const auto mask = matcher(Block::loadPart(cursor, rest)).within(rest);
    return mask ? cursor + mask.first() : end;
}

} // namespace pps

#endif
