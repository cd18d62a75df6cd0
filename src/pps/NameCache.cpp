// SPDX-License-Identifier: Apache-2.0
#include "NameCache.h"

#include "Utf8Text.h"

#include <cstdint>
#include <cstring>
#include <memory>

namespace tamo {

namespace {

/** A hash of 1 to 31 bytes, from its first and its last eight bytes, which overlap. */
std::size_t hashOf(const char* bytes, std::size_t length)
{
    std::uint64_t first = 0;
    std::uint64_t last = 0;
    if (length >= sizeof first) {
        std::memcpy(&first, bytes, sizeof first);
        std::memcpy(&last, bytes + length - sizeof last, sizeof last);
    } else {
        std::memcpy(&first, bytes, length);
    }
    constexpr std::uint64_t oddMultiplier = 0x9e3779b97f4a7c15; // 2^64 over the golden ratio
    const std::uint64_t mixed = (first ^ (last << 5 | last >> 59) ^ length) * oddMultiplier;
    return static_cast<std::size_t>(mixed >> 48);
}

} // namespace

// Found without a call of the loader. Such storage is scarce in a process, and these few bytes fit.
#define TAMO_FAST_THREAD_LOCAL static thread_local __attribute__((tls_model("initial-exec")))

NameCache* NameCache::ofThisThread()
{
    TAMO_FAST_THREAD_LOCAL bool hasEnded = false;
    struct Owner
    {
        std::unique_ptr<NameCache> cache = std::make_unique<NameCache>();
        ~Owner() { hasEnded = true; }
    };
    if (hasEnded)
        return nullptr;
    TAMO_FAST_THREAD_LOCAL const Owner owner;
    return owner.cache.get();
}

QString NameCache::text(const char* utf8)
{
    const std::size_t length = std::strlen(utf8);
    if (length == 0 || length > LongestName)
        return textFromUtf8(utf8, length);
    Entry& entry = m_entries[hashOf(utf8, length) % Size];
    if (std::memcmp(entry.utf8.data(), utf8, length + 1) != 0) {
        entry.text = textFromUtf8(utf8, length);
        std::memcpy(entry.utf8.data(), utf8, length + 1);
    }
    return entry.text;
}

} // namespace tamo
