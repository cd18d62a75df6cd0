// SPDX-License-Identifier: Apache-2.0
#ifndef HOST_OBJECTTEXT_H
#define HOST_OBJECTTEXT_H

#include "FileDescriptor.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <string>

namespace host {

/** A system call, again for as long as signals interrupt it. */
template<class Call>
auto uninterrupted(Call call)
{
    auto result = call();
    while (result == -1 && errno == EINTR)
        result = call();
    return result;
}

/**
 * Reads what an object's text is now.
 *
 * @param text empty for an object that was never published
 * @return 0 or an `errno` value
 */
inline int readObject(const char* path, std::string& text)
{
    // A read into room for the longest message has the kernel hold every page of it. A buffer that
    // is too small is refused, and loses nothing.
    constexpr std::size_t usualSize = 4096;
    constexpr std::size_t largestSize = std::size_t{1} << 20;
    const FileDescriptor object(
        uninterrupted([=] { return ::open(path, O_RDONLY | O_NONBLOCK | O_CLOEXEC); }));
    if (!object)
        return errno;
    text.resize(usualSize);
    for (;;) {
        const ssize_t length =
            uninterrupted([&] { return ::read(object.get(), text.data(), text.size()); });
        if (length >= 0) {
            text.resize(static_cast<std::size_t>(length));
            return 0;
        }
        if (errno != EMSGSIZE || text.size() >= largestSize)
            return errno;
        text.resize(2 * text.size());
    }
}

} // namespace host

#endif
