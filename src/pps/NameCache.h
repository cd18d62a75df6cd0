// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PPS_NAMECACHE_H
#define TAMO_PPS_NAMECACHE_H

#include <QtCore/QString>

#include <array>
#include <cstddef>
#include <cstdint>

namespace tamo {

/**
 * The names that a thread has decoded lately, as QStrings. Messages of a service repeat the same
 * few names, and making a QString of one costs more than all else that decoding does with it.
 *
 * Its size is fixed, whatever the messages hold: a name takes the place of another one with the
 * same hash, and long names are not kept.
 */
class NameCache
{
public:
    /** The cache of the calling thread; null while that thread ends, when its cache has gone. */
    static NameCache* ofThisThread();

    /** How many bytes can be read from a name's first one on, whatever the name's length. */
    static constexpr std::size_t ReadableSize = 32;

    /**
     * The text of zero-terminated UTF-8, as textFromUtf8() makes it.
     *
     * @param utf8 where ReadableSize bytes can be read, whatever they are behind the zero
     */
    QString text(const char* utf8);

private:
    static constexpr std::size_t Size = 128; // a power of two

    /** A name's bytes, the first ones lowest, and zeros behind them. */
    using Words = std::array<std::uint64_t, ReadableSize / sizeof(std::uint64_t)>;

    static bool load(const char* utf8, Words& words);

    struct Entry
    {
        Words utf8 = {};
        QString text;
    };

    std::array<Entry, Size> m_entries;
};

} // namespace tamo

#endif
