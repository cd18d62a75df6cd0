// SPDX-License-Identifier: Apache-2.0
#include <zel/zel.h>

#include <cerrno>

int zel_get_version(int* version)
{
    if (!version) {
        errno = EINVAL;
        return -1;
    }
    *version = ZEL_VERSION;
    return 0;
}
