// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_BOXENTRANCE_H
#define TAMOBOX_BOXENTRANCE_H

#include <string>

namespace tamobox {

/** How far a command goes into a box. */
enum class Depth {
    Files,    ///< it meets the box's `/pps`
    Processes ///< the processes that it starts are processes of the box, too
};

/** What a command knows of the box that it has entered. */
struct EnteredBox
{
    std::string name;
    std::string status; ///< JSON, see docs/box.md
};

/**
 * Moves the calling process, which must not have threads, into a running box. It keeps the
 * capabilities that it had and gains none. Afterwards the working directory is `/`. Within the box
 * already, it stays where it is.
 *
 * @param requestedName of the box; empty for the one that the environment names, or else for the
 * only one running
 * @throws Failure where there is no such box, or none or several to choose from
 */
EnteredBox enterBox(const std::string& requestedName, Depth depth);

} // namespace tamobox

#endif
