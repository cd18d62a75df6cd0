// SPDX-License-Identifier: Apache-2.0
#include "Diagnostics.h"
#include "common/Call.h"

#include <zel/zel.h>

#include <cstdlib>

int zel_get_version(int* version)
{
    return host::call([&] {
        if (!version)
            return EINVAL;
        *version = ZEL_VERSION;
        return 0;
    });
}

int zel_set_verbosity(unsigned int verbosity)
{
    zel::setVerbosity(verbosity);
    return 0;
}

void zel_free(void* memory)
{
    std::free(memory);
}
