// SPDX-License-Identifier: Apache-2.0
#include "Capabilities.h"

#include <linux/capability.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>

namespace ppsfs {
namespace {

constexpr std::uint32_t MountCapability = std::uint32_t{1} << CAP_SYS_ADMIN;

/** Keeps what of `kept` is permitted; makes it effective or leaves it aside. */
int setCapabilities(std::uint32_t kept, bool effective)
{
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct data[_LINUX_CAPABILITY_U32S_3]{};
    if (syscall(SYS_capget, &header, data) != 0)
        return errno;
    const std::uint32_t permitted = data[0].permitted & kept;
    data[0] = {effective ? permitted : 0, permitted, 0};
    data[1] = {0, 0, 0};
    return syscall(SYS_capset, &header, data) == 0 ? 0 : errno;
}

} // namespace

int shelveCapabilities()
{
    if (prctl(PR_CAP_AMBIENT, PR_CAP_AMBIENT_CLEAR_ALL, 0, 0, 0) != 0)
        return errno;
    return setCapabilities(MountCapability, false);
}

int useMountCapability()
{
    return setCapabilities(MountCapability, true);
}

} // namespace ppsfs
