// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ZelClockImpl.h>

namespace tamomock {

ZelClockImpl::~ZelClockImpl() = default;

int ZelClockImpl::requestEvents(int flags)
{
    return clock_request_events(flags);
}

int ZelClockImpl::getDomain()
{
    return clock_get_domain();
}

int64_t ZelClockImpl::eventGetDateChange(const zel_event_t* event)
{
    return clock_event_get_date_change(event);
}

const char* ZelClockImpl::eventGetTimeZoneChange(const zel_event_t* event)
{
    return clock_event_get_time_zone_change(event);
}

} // namespace tamomock
