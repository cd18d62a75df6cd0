// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_FUZZ_DECODEDANSWER_H
#define TAMO_FUZZ_DECODEDANSWER_H

#include <tamo/Exception.h>
#include <tamo/PpsAccessor.h>

#include <QByteArray>
#include <QVariantMap>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>

namespace tamofuzz {

inline void require(bool condition, const char* what)
{
    if (condition)
        return;
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

/** The map that a service's bytes arrive as; nothing where they are no PPS text. */
inline std::optional<QVariantMap> decodedAnswer(const std::uint8_t* data, std::size_t size)
{
    const QByteArray text(reinterpret_cast<const char*>(data),
                          static_cast<decltype(QByteArray().size())>(size));
    try {
        return tamo::PpsAccessor::decode(text);
    } catch (const tamo::Exception&) {
        return std::nullopt;
    }
}

} // namespace tamofuzz

#endif
