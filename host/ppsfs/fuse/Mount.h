// SPDX-License-Identifier: Apache-2.0
#ifndef PPSFS_MOUNT_H
#define PPSFS_MOUNT_H

#include "common/FileDescriptor.h"

#include <string>

namespace ppsfs {

/** A mounted FUSE filesystem; destruction unmounts it. */
class Mount
{
public:
    /**
     * Opens the FUSE device and mounts it on a directory, for every user of the mount namespace and
     * with the kernel enforcing owners and modes.
     *
     * It calls mount(2) itself, so that it works wherever the caller holds the capability for that,
     * in a user namespace too, without a privileged helper.
     *
     * Throws std::runtime_error, whose text says what is wrong and, where it can, what would help.
     */
    explicit Mount(const std::string& mountpoint);
    ~Mount();
    Mount(const Mount&) = delete;
    Mount& operator=(const Mount&) = delete;

    /** The FUSE device: non-blocking, and not inherited by programs that are started. */
    int device() const { return m_device.get(); }

private:
    host::FileDescriptor m_device;
    std::string m_mountpoint; ///< absolute, without symbolic links
};

} // namespace ppsfs

#endif
