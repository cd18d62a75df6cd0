// SPDX-License-Identifier: Apache-2.0
#ifndef PPSFS_REQUEST_H
#define PPSFS_REQUEST_H

#include "FileSystem.h"
#include "FuseApi.h"
#include "Opener.h"

#include <memory>

namespace ppsfs {

/** The filesystem that a request is for. */
FileSystem& fileSystemOf(fuse_req_t request);

/** The directory that a node id stands for, or null where it stands for none. */
std::shared_ptr<Directory> directoryOf(fuse_req_t request, fuse_ino_t id);

/** The status of a node that the request's process creates. */
NodeStatus statusOfNew(fuse_req_t request, mode_t mode);

/** The process that a request comes from. */
Opener openerOf(fuse_req_t request);

} // namespace ppsfs

#endif
