// SPDX-License-Identifier: Apache-2.0
#include "Mount.h"

#include "Capabilities.h"

#include <fcntl.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <stdexcept>

namespace ppsfs {
namespace {

constexpr char Device[] = "/dev/fuse";

[[noreturn]] void fail(const std::string& what, int error, const std::string& help = {})
{
    throw std::runtime_error(what + ": " + std::strerror(error) + help);
}

std::string resolveDirectory(const std::string& path)
{
    const std::unique_ptr<char, void (*)(void*)> resolved(realpath(path.c_str(), nullptr),
                                                          &std::free);
    if (!resolved)
        fail(path, errno);
    struct stat status
    {
    };
    if (stat(resolved.get(), &status) != 0)
        fail(path, errno);
    if (!S_ISDIR(status.st_mode))
        fail(path, ENOTDIR);
    return resolved.get();
}

host::FileDescriptor openDevice()
{
    host::FileDescriptor device(open(Device, O_RDWR | O_CLOEXEC));
    if (device)
        return device;
    switch (errno) {
    case ENOENT:
    case ENODEV:
    case ENXIO:
        fail(Device, errno, "; the kernel's module `fuse` is not there");
    case EACCES:
    case EPERM:
        fail(Device, errno, "; this user has no access to it");
    default:
        fail(Device, errno);
    }
}

} // namespace

Mount::Mount(const std::string& mountpoint)
    : m_device(openDevice()), m_mountpoint(resolveDirectory(mountpoint))
{
    const std::string options = "fd=" + std::to_string(m_device.get()) +
                                ",rootmode=40755,user_id=" + std::to_string(geteuid()) +
                                ",group_id=" + std::to_string(getegid()) +
                                ",default_permissions,allow_other";
    if (mount("ppsfs", m_mountpoint.c_str(), "fuse.ppsfs", MS_NOSUID | MS_NODEV, options.c_str()) ==
        0)
        return;
    if (errno == EPERM)
        fail("cannot mount on " + mountpoint, errno,
             "; mounting takes root, or CAP_SYS_ADMIN in a user namespace of one's own");
    fail("cannot mount on " + mountpoint, errno);
}

Mount::~Mount()
{
    // Where this fails, the mount was taken away by somebody else, or goes with its namespace.
    useMountCapability();
    umount2(m_mountpoint.c_str(), MNT_DETACH | UMOUNT_NOFOLLOW);
}

} // namespace ppsfs
