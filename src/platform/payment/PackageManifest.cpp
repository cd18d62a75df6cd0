// SPDX-License-Identifier: Apache-2.0
#include "PackageManifest.h"

#include "ServiceDescriptor.h"

#include <tamo/Exception.h>

#include <algorithm>
#include <array>
#include <fcntl.h>

namespace tamo {
namespace platform {

namespace {

constexpr const char* path = "app/META-INF/MANIFEST.MF";
constexpr std::size_t maxSize = 2048;
constexpr std::size_t maxNameSize = 52;
constexpr std::size_t maxIdSize = 29;
constexpr std::string_view lineEnds = "\n\r";

/** Takes the first run of other characters than the separators from a text, and all before it; an
 * empty one where there is none. */
std::string_view takeToken(std::string_view& text, std::string_view separators)
{
    text.remove_prefix(std::min(text.find_first_not_of(separators), text.size()));
    const std::string_view token = text.substr(0, text.find_first_of(separators));
    text.remove_prefix(token.size());
    return token;
}

/** A value, cut to at most so many bytes, and there between two characters. */
std::string_view limited(std::string_view value, std::size_t maxLength)
{
    if (value.empty())
        throw Exception();
    if (value.size() <= maxLength)
        return value;
    const auto isContinuation = [](char c) {
        return (static_cast<unsigned char>(c) & 0xc0) == 0x80;
    };
    std::size_t length = maxLength;
    while (length > 0 && isContinuation(value[length]))
        --length;
    return value.substr(0, length);
}

QByteArray bytes(std::string_view text)
{
    return QByteArray(text.data(), static_cast<int>(text.size()));
}

} // namespace

QByteArray PackageManifest::readApplicationId()
{
    // Whoever has put a FIFO there does not make it wait.
    const ServiceDescriptor manifest(path, O_RDONLY | O_NONBLOCK);
    std::array<char, maxSize> text;
    const ssize_t size = manifest.read(text.data(), text.size());
    if (size < 1)
        throw Exception();
    return applicationId({text.data(), static_cast<std::size_t>(size)});
}

QByteArray PackageManifest::applicationId(std::string_view text)
{
    constexpr std::size_t separatorSize = 2; // the colon and the space behind it
    std::string_view name;
    std::string_view id;
    std::string_view rest = text.substr(0, text.find('\0'));
    while (true) {
        rest.remove_prefix(std::min(rest.find_first_not_of(lineEnds), rest.size()));
        if (rest.empty())
            break;
        const std::string_view key = takeToken(rest, ":");
        if (key.empty() || rest.size() < separatorSize)
            throw Exception();
        rest.remove_prefix(separatorSize);
        const std::string_view value = takeToken(rest, lineEnds);
        if (key == "Package-Name")
            name = limited(value, maxNameSize);
        else if (key == "Package-Id")
            id = limited(value, maxIdSize);
        else if (key == "Application-Name")
            break;
    }
    if (name.empty() || id.empty())
        throw Exception();
    return bytes(name) + '.' + bytes(id);
}

} // namespace platform
} // namespace tamo
