// SPDX-License-Identifier: Apache-2.0
#include "Node.h"

namespace ppsfs {

timespec timeStamp()
{
    timespec now{};
    clock_gettime(CLOCK_REALTIME_COARSE, &now);
    return now;
}

} // namespace ppsfs
