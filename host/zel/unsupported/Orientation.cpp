// SPDX-License-Identifier: Apache-2.0
#include "Unsupported.h"

#include "core/Domain.h"

#include <zel/orientation.h>

int orientation_get_domain()
{
    return zel::number(zel::Domain::Orientation);
}

ZEL_UNSUPPORTED(-1, int orientation_request_events(int))
ZEL_UNSUPPORTED(-1, int orientation_get(orientation_direction_t*, int*))
ZEL_UNSUPPORTED(ORIENTATION_UNKNOWN,
                orientation_direction_t orientation_event_get_direction(const zel_event_t*))
ZEL_UNSUPPORTED(-1, int orientation_event_get_angle(const zel_event_t*))
