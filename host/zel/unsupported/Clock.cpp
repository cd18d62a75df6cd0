// SPDX-License-Identifier: Apache-2.0
#include "Unsupported.h"

#include "core/Domain.h"

#include <zel/clock.h>

int clock_get_domain()
{
    return zel::number(zel::Domain::Clock);
}

ZEL_UNSUPPORTED(-1, int clock_request_events(int))
ZEL_UNSUPPORTED(0, int64_t clock_event_get_date_change(const zel_event_t*))
ZEL_UNSUPPORTED(nullptr, const char* clock_event_get_time_zone_change(const zel_event_t*))
