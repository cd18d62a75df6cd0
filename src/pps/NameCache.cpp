// SPDX-License-Identifier: Apache-2.0
#include "NameCache.h"

#include "Utf8Text.h"
#include "core/InitialExec.h"

#include <QtCore/QtAlgorithms>
#include <QtCore/QtEndian>

#include <cstring>
#include <memory>
#include <tuple>

namespace tamo {

namespace {

/** The lowest byte of a word that is zero, as the number of bits below it; 64 where there is none.
 */
unsigned bitsBeforeZero(std::uint64_t word)
{
    constexpr std::uint64_t lowestBits = 0x0101010101010101;
    constexpr std::uint64_t highestBits = 0x8080808080808080;
    // Bytes above one that is zero may be taken for zeros, too: the subtraction borrows from them.
    const std::uint64_t zeroBytes = (word - lowestBits) & ~word & highestBits;
    return zeroBytes != 0 ? qCountTrailingZeroBits(zeroBytes) - 7 : 64;
}

constexpr std::uint64_t rotated(std::uint64_t word, unsigned bits)
{
    return word << bits | word >> (64 - bits);
}

template<class Words>
std::size_t hashOf(const Words& words)
{
    static_assert(std::tuple_size_v<Words> == 4);
    constexpr std::uint64_t oddMultiplier = 0x9e3779b97f4a7c15; // 2^64 over the golden ratio
    // One multiplication only: they would wait for each other.
    const std::uint64_t all =
        words[0] ^ rotated(words[1], 5) ^ rotated(words[2], 23) ^ rotated(words[3], 41);
    return static_cast<std::size_t>((all * oddMultiplier) >> 48);
}

} // namespace

NameCache* NameCache::ofThisThread()
{
    TAMO_INITIAL_EXEC static thread_local bool hasEnded = false;
    struct Owner
    {
        std::unique_ptr<NameCache> cache = std::make_unique<NameCache>();
        ~Owner() { hasEnded = true; }
    };
    if (hasEnded)
        return nullptr;
    TAMO_INITIAL_EXEC static thread_local const Owner owner;
    return owner.cache.get();
}

/** Reads a name, also the empty one. False where it does not fit with the zero behind it. */
bool NameCache::load(const char* utf8, Words& words)
{
    words = {};
    for (std::size_t i = 0; i < words.size(); ++i) {
        const auto word = qFromLittleEndian<quint64>(utf8 + i * sizeof(quint64));
        const unsigned bits = bitsBeforeZero(word);
        if (bits == 64) {
            words[i] = word;
            continue;
        }
        words[i] = word & ((std::uint64_t(1) << bits) - 1);
        return true;
    }
    return false;
}

QString NameCache::text(const char* utf8)
{
    Words words;
    if (!load(utf8, words))
        return textFromUtf8(utf8, std::strlen(utf8));
    Entry& entry = m_entries[hashOf(words) % Size];
    if (entry.utf8 != words || entry.text.isNull()) {
        entry.text = textFromUtf8(utf8, std::strlen(utf8));
        entry.utf8 = words;
    }
    return entry.text;
}

} // namespace tamo
