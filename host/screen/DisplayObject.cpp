// SPDX-License-Identifier: Apache-2.0
#include "DisplayObject.h"

#include "DisplayReader.h"

#include "common/FileDescriptor.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <memory>

namespace screen {
namespace {

constexpr char ObjectPath[] = "/pps/services/screen/displays";

// The second one takes any message. A buffer that is too small is refused, and loses nothing.
constexpr std::size_t BufferSizes[] = {std::size_t{16} << 10, std::size_t{1} << 20};

/** A system call, again for as long as signals interrupt it. */
template<class Call>
auto uninterrupted(Call call)
{
    auto result = call();
    while (result == -1 && errno == EINTR)
        result = call();
    return result;
}

} // namespace

int readDisplayObject(std::vector<Display>& displays)
{
    const host::FileDescriptor object(
        uninterrupted([] { return open(ObjectPath, O_RDONLY | O_NONBLOCK | O_CLOEXEC); }));
    if (object.get() == -1) {
        if (errno != ENOENT)
            return errno;
        displays = builtInDisplays();
        return 0;
    }
    int error = 0;
    for (const std::size_t size : BufferSizes) {
        const std::unique_ptr<char[]> buffer(new char[size]);
        const ssize_t length =
            uninterrupted([&] { return read(object.get(), buffer.get(), size - 1); });
        if (length >= 0) {
            buffer[static_cast<std::size_t>(length)] = '\0';
            return readDisplays(buffer.get(), displays);
        }
        error = errno;
        if (error != EMSGSIZE)
            break;
    }
    return error;
}

} // namespace screen
