// SPDX-License-Identifier: Apache-2.0
#include "ObjectFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>

namespace tamobox {

namespace {

// A read into room for the longest message has the kernel hold every page of it. A buffer that is
// too small is refused, and loses nothing.
constexpr std::size_t usualSize = 4096;
constexpr std::size_t largestSize = 1024 * 1024;

struct Meaning
{
    int error;
    const char* text;
};

constexpr std::array<Meaning, 12> meanings = {{
    {ENOENT, "there is no such object"},
    {EISDIR, "it is a directory of objects"},
    {EACCES, "its mode does not allow that"},
    {EINVAL, "the message is malformed, or is not one that this object takes"},
    {EFBIG, "the object would be longer than 1044480 bytes"},
    {EBUSY, "it has a server already"},
    {EPIPE, "nothing serves it"},
    {EAGAIN, "the queue is full; its messages are not being read"},
    {ENOTCONN, "/pps has ended"},
    {ENOTDIR, "a part of its path is an object and no directory"},
    {ENAMETOOLONG, "its name is longer than 255 bytes"},
    {EROFS, "there is no /pps here"},
}};

std::string meaningOf(int error)
{
    for (const Meaning& meaning : meanings)
        if (meaning.error == error)
            return meaning.text;
    return errorText(error);
}

} // namespace

std::string objectPath(const std::string& object)
{
    const std::string root = "/pps/";
    std::string path = object.rfind(root, 0) == 0 ? object : root + object;
    const bool leadsElsewhere = object.empty() || (object[0] == '/' && path != object) ||
                                path.back() == '/' || (path + '/').find("/../") != path.npos;
    if (leadsElsewhere)
        throw Failure("'" + object +
                          "' is not an object's name, which is like 'services/power/battery'",
                      status::usage);
    if (path.find('?') != path.npos)
        throw Failure("'" + object + "' has options after its name; give the name alone",
                      status::usage);
    return path;
}

ObjectFile::ObjectFile(const std::string& object, int flags, const std::string& options)
    : m_path(objectPath(object))
{
    const std::string name = options.empty() ? m_path : m_path + '?' + options;
    m_descriptor = Descriptor(open(name.c_str(), flags | O_CLOEXEC, 0644));
    if (!m_descriptor)
        throw failure("open");
}

std::optional<std::string> ObjectFile::read()
{
    ssize_t size = readInto(usualSize);
    while (size == -1 && errno == EMSGSIZE && m_buffer.size() < largestSize)
        size = readInto(2 * m_buffer.size());
    if (size == -1 && errno != EAGAIN && errno != EINTR)
        throw failure("read");
    if (size <= 0)
        return std::nullopt;
    return std::string(m_buffer.data(), static_cast<std::size_t>(size));
}

ssize_t ObjectFile::readInto(std::size_t size)
{
    m_buffer.resize(std::max(size, m_buffer.size()));
    return ::read(m_descriptor.get(), m_buffer.data(), m_buffer.size());
}

void ObjectFile::write(const std::string& message)
{
    const ssize_t size = ::write(m_descriptor.get(), message.data(), message.size());
    if (size != static_cast<ssize_t>(message.size()))
        throw failure("write");
}

ObjectFailure ObjectFile::failure(const char* what) const
{
    const int error = errno;
    return {"cannot " + std::string(what) + ' ' + m_path + ": " + meaningOf(error), error};
}

} // namespace tamobox
