// SPDX-License-Identifier: Apache-2.0
#include "Capabilities.h"

#include "Failure.h"

#include <linux/capability.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace tamobox {

namespace {

// The kernel's calls take a set as two words.
struct KernelSets
{
    __user_cap_header_struct header = {_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct words[2] = {};
};

CapabilitySet combined(std::uint32_t low, std::uint32_t high)
{
    return low | CapabilitySet{high} << 32;
}

} // namespace

CapabilitySet permittedCapabilities()
{
    KernelSets sets;
    if (syscall(SYS_capget, &sets.header, sets.words) == -1)
        throw systemFailure("cannot read this process's capabilities");
    return combined(sets.words[0].permitted, sets.words[1].permitted);
}

bool mayAdministerSystem()
{
    return (permittedCapabilities() >> CAP_SYS_ADMIN & 1) != 0;
}

bool restrictCapabilities(CapabilitySet set)
{
    // Without this, a program that user 0 executes would get every capability back.
    if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == -1)
        return false;
    if (prctl(PR_CAP_AMBIENT, PR_CAP_AMBIENT_CLEAR_ALL, 0, 0, 0) == -1)
        return false;
    KernelSets sets;
    if (syscall(SYS_capget, &sets.header, sets.words) == -1)
        return false;
    for (int i = 0; i < 2; ++i) {
        const auto keep = static_cast<std::uint32_t>(set >> (32 * i));
        sets.words[i].permitted &= keep;
        sets.words[i].effective = sets.words[i].permitted;
        sets.words[i].inheritable = 0;
    }
    return syscall(SYS_capset, &sets.header, sets.words) == 0;
}

} // namespace tamobox
