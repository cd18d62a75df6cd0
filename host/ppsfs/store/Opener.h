// SPDX-License-Identifier: Apache-2.0
#ifndef PPSFS_OPENER_H
#define PPSFS_OPENER_H

#include <sys/types.h>

namespace ppsfs {

/** The process that opened a handle, in the namespaces of the filesystem's own process. */
struct Opener
{
    pid_t process = 0; ///< 0: not to be seen from there
    uid_t user = 0;
    gid_t group = 0;
};

} // namespace ppsfs

#endif
