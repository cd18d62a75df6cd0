// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PPS_NAMECACHE_H
#define TAMO_PPS_NAMECACHE_H

#include <QtCore/QString>

#include <array>
#include <cstddef>

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

    /** The text of zero-terminated UTF-8, as textFromUtf8() makes it. */
    QString text(const char* utf8);

private:
    static constexpr std::size_t Size = 128; // a power of two
    static constexpr std::size_t LongestName = 31;

    struct Entry
    {
        std::array<char, LongestName + 1> utf8 = {};
        QString text;
    };

    std::array<Entry, Size> m_entries;
};

} // namespace tamo

#endif
