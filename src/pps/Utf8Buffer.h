// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PPS_UTF8BUFFER_H
#define TAMO_PPS_UTF8BUFFER_H

#include <QtCore/QString>

#include <array>
#include <cstddef>
#include <memory>

namespace tamo {

/**
 * Holds one text at a time as zero-terminated UTF-8, for a C function to read. Short texts take no
 * memory from the heap.
 *
 * QString::toUtf8() would not do: it turns half a surrogate pair into a question mark, and passes a
 * NUL on, where the C function takes the text to end.
 */
class Utf8Buffer
{
public:
    /**
     * Converts a text.
     *
     * @return the UTF-8, valid until the next call, or null where the text holds a NUL character or
     *         half a surrogate pair
     */
    const char* convert(const QString& text);

private:
    char* reserve(std::size_t size);

    std::array<char, 384> m_inline;
    std::unique_ptr<char[]> m_heap;
    std::size_t m_heapSize = 0;
};

} // namespace tamo

#endif
