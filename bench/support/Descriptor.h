// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_BENCH_DESCRIPTOR_H
#define TAMO_BENCH_DESCRIPTOR_H

#include <cerrno>
#include <string>
#include <system_error>
#include <utility>

#include <unistd.h>

namespace tamobench {

/** The system's error of the last call, as an exception that names what was tried. */
[[noreturn]] inline void throwErrno(const std::string& what)
{
    throw std::system_error(errno, std::generic_category(), what);
}

/** Owns a file descriptor. */
class Descriptor
{
public:
    Descriptor() = default;

    /** Takes the result of a system call; throws std::system_error with `what` where it is -1. */
    Descriptor(int descriptor, const std::string& what) : m_descriptor(descriptor)
    {
        if (descriptor < 0)
            throwErrno(what);
    }

    Descriptor(Descriptor&& other) noexcept : m_descriptor(std::exchange(other.m_descriptor, -1)) {}

    Descriptor& operator=(Descriptor&& other) noexcept
    {
        std::swap(m_descriptor, other.m_descriptor);
        return *this;
    }

    ~Descriptor() { close(); }

    int get() const { return m_descriptor; }

    /** Gives the descriptor away. */
    int release() { return std::exchange(m_descriptor, -1); }

    void close()
    {
        if (m_descriptor >= 0)
            ::close(std::exchange(m_descriptor, -1));
    }

private:
    int m_descriptor = -1;
};

} // namespace tamobench

#endif
