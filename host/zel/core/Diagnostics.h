// SPDX-License-Identifier: Apache-2.0
#ifndef ZEL_CORE_DIAGNOSTICS_H
#define ZEL_CORE_DIAGNOSTICS_H

namespace zel {

/** From which verbosity (zel_set_verbosity()) on something is said. */
enum class Level : unsigned {
    Unreadable = 1, ///< what was sent and could not be read
    Event = 2       ///< every event
};

void setVerbosity(unsigned verbosity);

/** Whether something of a level is to be said. */
bool isSaid(Level level);

/** Writes one line to standard error, where the level is said: format as for printf(), without the
 * line end. Leaves `errno` alone. Any thread; lines stay whole. */
void say(Level level, const char* format, ...) __attribute__((format(printf, 2, 3)));

} // namespace zel

#endif
