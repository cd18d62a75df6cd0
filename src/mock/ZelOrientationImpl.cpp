// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ZelOrientationImpl.h>

namespace tamomock {

ZelOrientationImpl::~ZelOrientationImpl() = default;

int ZelOrientationImpl::requestEvents(int flags)
{
    return orientation_request_events(flags);
}

int ZelOrientationImpl::getDomain()
{
    return orientation_get_domain();
}

int ZelOrientationImpl::get(orientation_direction_t* direction, int* angle)
{
    return orientation_get(direction, angle);
}

orientation_direction_t ZelOrientationImpl::eventGetDirection(const zel_event_t* event)
{
    return orientation_event_get_direction(event);
}

int ZelOrientationImpl::eventGetAngle(const zel_event_t* event)
{
    return orientation_event_get_angle(event);
}

} // namespace tamomock
