// SPDX-License-Identifier: Apache-2.0
#include "FuseDevice.h"

#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace tamotest {

static constexpr const char* device = "/dev/fuse";
static constexpr mode_t forAll = S_IFCHR | 0666;

static bool replaceDevice(dev_t number)
{
    // A tmpfs of the namespace's own has the new node; the bind keeps it there when the tmpfs has
    // been taken off its directory again.
    char directory[] = "/tmp/fuse-device-XXXXXX";
    if (mkdtemp(directory) == nullptr)
        return false;
    const std::string node = std::string(directory) + "/fuse";
    const bool isMounted = mount("tmpfs", directory, "tmpfs", MS_NOSUID, nullptr) == 0;
    const bool isReplaced = isMounted && mknod(node.c_str(), forAll, number) == 0 &&
                            chmod(node.c_str(), 0666) == 0 &&
                            mount(node.c_str(), device, nullptr, MS_BIND, nullptr) == 0;
    if (isMounted)
        umount2(directory, MNT_DETACH);
    rmdir(directory);
    return isReplaced;
}

void openFuseDevice()
{
    struct stat status = {};
    if (geteuid() != 0 || stat(device, &status) != 0 || (status.st_mode & 0006) == 0006)
        return;
    const bool isOpen = unshare(CLONE_NEWNS) == 0 &&
                        mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
                        replaceDevice(status.st_rdev);
    if (!isOpen)
        std::perror("/dev/fuse cannot be opened to ordinary users");
}

} // namespace tamotest
