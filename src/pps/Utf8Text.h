// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PPS_UTF8TEXT_H
#define TAMO_PPS_UTF8TEXT_H

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <cstddef>
#include <cstring>

namespace tamo {

/** The text that zero-terminated, valid UTF-8 of a known length stands for, all of it: also a byte
 * order mark at its beginning. */
inline QString textFromUtf8(const char* utf8, std::size_t length)
{
    // QString::fromUtf8() drops one such mark, which is a character like any other.
    constexpr char mark[] = {'\xef', '\xbb', '\xbf'};
    if (length >= sizeof mark && std::memcmp(utf8, mark, sizeof mark) == 0)
        return QString::fromUtf8(QByteArray(mark, sizeof mark).append(utf8));
    using Size = decltype(QString().size());
    return QString::fromUtf8(utf8, static_cast<Size>(length));
}

} // namespace tamo

#endif
