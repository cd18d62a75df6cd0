// SPDX-License-Identifier: Apache-2.0
#ifndef PPSFS_OBJECTNAME_H
#define PPSFS_OBJECTNAME_H

#include <cstdint>
#include <string>
#include <string_view>

namespace ppsfs {

/** A set of OpenOption bits. */
using OpenOptions = std::uint8_t;

/** What follows the question mark in a name: how an object is opened. */
enum OpenOption : OpenOptions {
    WaitOption = 1,    ///< `wait`: a read with nothing new waits
    ChangesOption = 2, ///< `changes`: reads return changed lines only
    ServeOption = 4    ///< `serve`: the opener is the object's server
};

/** A name in a directory, taken apart at its question mark. */
struct ObjectName
{
    std::string_view plain; ///< lies in the name that was parsed
    OpenOptions options = 0;

    /**
     * Takes a name apart.
     *
     * @return 0; ENAMETOOLONG; or EINVAL for options that are unknown, empty or contradict each
     * other
     */
    static int parse(std::string_view name, ObjectName& parsed);
};

/** Whether an object or a directory can have this name: UTF-8 that fits into an `@name` line. */
bool isValidNodeName(std::string_view plain);

/** The line that heads an object's text: `@name`, with its line feed. */
std::string headingOf(std::string_view plain);

} // namespace ppsfs

#endif
