// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_DESCRIPTOR_H
#define TAMOBOX_DESCRIPTOR_H

#include <unistd.h>

#include <utility>

namespace tamobox {

/** Owns one file descriptor and closes it. Empty (-1) by default; moved, never copied. */
class Descriptor
{
public:
    Descriptor() = default;
    explicit Descriptor(int fd) : m_fd(fd) {}
    Descriptor(Descriptor&& other) noexcept : m_fd(other.release()) {}
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        std::swap(m_fd, other.m_fd);
        return *this;
    }
    ~Descriptor() { reset(); }

    /** The descriptor, which stays owned; -1 where there is none. */
    int get() const { return m_fd; }

    explicit operator bool() const { return m_fd != -1; }

    /** Gives the descriptor away: the caller closes it. */
    int release() { return std::exchange(m_fd, -1); }

    /** Closes the descriptor now. */
    void reset()
    {
        if (m_fd != -1)
            ::close(release());
    }

private:
    int m_fd = -1;
};

} // namespace tamobox

#endif
