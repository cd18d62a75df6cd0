// SPDX-License-Identifier: Apache-2.0
#ifndef HOST_FILEDESCRIPTOR_H
#define HOST_FILEDESCRIPTOR_H

#include <unistd.h>

#include <utility>

namespace host {

/** Owns a file descriptor; -1 stands for none. */
class FileDescriptor
{
public:
    explicit FileDescriptor(int descriptor = -1) : m_descriptor(descriptor) {}
    ~FileDescriptor() { reset(); }
    FileDescriptor(FileDescriptor&& other) noexcept
        : m_descriptor(std::exchange(other.m_descriptor, -1))
    {
    }
    FileDescriptor& operator=(FileDescriptor&& other) noexcept
    {
        std::swap(m_descriptor, other.m_descriptor);
        return *this;
    }

    int get() const { return m_descriptor; }
    explicit operator bool() const { return m_descriptor >= 0; }

    /** Closes it. */
    void reset()
    {
        if (m_descriptor >= 0)
            ::close(std::exchange(m_descriptor, -1));
    }

private:
    int m_descriptor;
};

} // namespace host

#endif
