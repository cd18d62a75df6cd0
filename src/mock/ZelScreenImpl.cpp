// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ZelScreenImpl.h>

namespace tamomock {

ZelScreenImpl::~ZelScreenImpl() = default;

int ZelScreenImpl::requestEvents(int flags)
{
    return screen_request_events(flags);
}

int ZelScreenImpl::getDomain()
{
    return screen_get_domain();
}

int ZelScreenImpl::stopEvents(int flags)
{
    return screen_stop_events(flags);
}

screen_event_t ZelScreenImpl::eventGetEvent(const zel_event_t* event)
{
    return screen_event_get_event(event);
}

} // namespace tamomock
