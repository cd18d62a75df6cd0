// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_PPSDESCRIPTOR_H
#define TAMO_TESTS_PPSDESCRIPTOR_H

#include <fcntl.h>
#include <sys/types.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace tamotest {

/** What a read returned. */
struct ReadResult
{
    int error = 0; ///< the `errno` value, or 0
    std::string text;
};

/** An object below `/pps`, opened with plain system calls. */
class PpsDescriptor
{
public:
    /** Large enough for any message. */
    static constexpr std::size_t BufferSize = std::size_t{1} << 20;

    PpsDescriptor() = default;

    /**
     * Opens an object; look at error() for the outcome.
     *
     * @param name its path below `/pps`, options included
     */
    explicit PpsDescriptor(const std::string& name, int flags = O_RDWR | O_CREAT,
                           mode_t mode = 0666);
    ~PpsDescriptor() { close(); }
    PpsDescriptor(PpsDescriptor&& other) noexcept;
    PpsDescriptor& operator=(PpsDescriptor&& other) noexcept;

    /** 0, or the `errno` value with which the opening failed. */
    int error() const { return m_error; }
    int get() const { return m_descriptor; }
    void close();

    /** Reads once; returns what was read, and a failure as text, so that it fails a comparison. */
    std::string read() const;

    /** Reads once into a buffer of a size. */
    ReadResult tryRead(std::size_t size = BufferSize) const;

    /** Writes once. 0, or the `errno` value; a short write is EIO. */
    int write(std::string_view text) const;

    /** What poll() reports now, of everything that it can report. */
    short events() const;

    bool isReadable() const;
    bool isWritable() const;

    /** Waits, with a limit, until it is readable. False where it never was. */
    bool waitUntilReadable() const;

    /** Likewise, until it is writable. */
    bool waitUntilWritable() const;

    void setNonBlocking(bool nonBlocking) const;

private:
    int m_descriptor = -1;
    int m_error = 0;
};

} // namespace tamotest

#endif
