// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_OBJECTFILE_H
#define TAMOBOX_OBJECTFILE_H

#include "common/Descriptor.h"
#include "common/Failure.h"

#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace tamobox {

/** A system call on an object failed. */
class ObjectFailure : public Failure
{
public:
    ObjectFailure(const std::string& sentence, int error) : Failure(sentence), m_error(error) {}

    /** The `errno` value. */
    int error() const { return m_error; }

private:
    int m_error;
};

/**
 * The path of an object that was named with or without `/pps/` in front.
 *
 * @throws Failure where it cannot be an object's name: empty, with options, or leading elsewhere
 */
std::string objectPath(const std::string& object);

/** The text of the largest message, in bytes. */
inline constexpr std::size_t longestMessage = 1'044'480;

/** One object below `/pps`, opened; messages are read and written whole. */
class ObjectFile
{
public:
    /**
     * @param object see objectPath()
     * @param flags as for open(); O_CLOEXEC is added
     * @param options what follows the question mark: empty, `wait`, `changes` or `serve`
     * @throws ObjectFailure
     */
    ObjectFile(const std::string& object, int flags, const std::string& options = {});

    /** Readable while there is something new; stays the file's. */
    int descriptor() const { return m_descriptor.get(); }

    /**
     * Reads the next message.
     *
     * @return nothing where there is nothing new; or where a signal ended the waiting for it
     * @throws ObjectFailure
     */
    std::optional<std::string> read();

    /** Writes one message. Throws ObjectFailure, and nothing has been written. */
    void write(const std::string& message);

private:
    /** Reads into so many bytes at least. */
    ssize_t readInto(std::size_t size);
    ObjectFailure failure(const char* what) const;

    std::string m_path;
    Descriptor m_descriptor;
    std::vector<char> m_buffer;
};

} // namespace tamobox

#endif
