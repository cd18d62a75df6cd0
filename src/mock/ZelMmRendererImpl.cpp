// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ZelMmRendererImpl.h>

namespace tamomock {

ZelMmRendererImpl::~ZelMmRendererImpl() = default;

int ZelMmRendererImpl::requestEvents(int flags)
{
    return mmrenderer_request_events(flags);
}

int ZelMmRendererImpl::getDomain()
{
    return mmrenderer_get_domain();
}

int ZelMmRendererImpl::stopEvents(int flags)
{
    return mmrenderer_stop_events(flags);
}

const char* ZelMmRendererImpl::eventGetUserdata(const zel_event_t* event)
{
    return mmrenderer_event_get_userdata(event);
}

mmrenderer_state_t ZelMmRendererImpl::eventGetState(const zel_event_t* event)
{
    return mmrenderer_event_get_state(event);
}

double ZelMmRendererImpl::eventGetSpeed(const zel_event_t* event)
{
    return mmrenderer_event_get_speed(event);
}

int ZelMmRendererImpl::eventGetError(const zel_event_t* event)
{
    return mmrenderer_event_get_error(event);
}

int64_t ZelMmRendererImpl::eventGetErrorPosition(const zel_event_t* event)
{
    return mmrenderer_event_get_error_position(event);
}

const char* ZelMmRendererImpl::eventGetWarning(const zel_event_t* event)
{
    return mmrenderer_event_get_warning(event);
}

int64_t ZelMmRendererImpl::eventGetWarningPosition(const zel_event_t* event)
{
    return mmrenderer_event_get_warning_position(event);
}

int64_t ZelMmRendererImpl::eventGetPosition(const zel_event_t* event)
{
    return mmrenderer_event_get_position(event);
}

int ZelMmRendererImpl::eventGetBufferlevel(const zel_event_t* event)
{
    return mmrenderer_event_get_bufferlevel(event);
}

mmrenderer_bufferstatus_t ZelMmRendererImpl::eventGetBufferstatus(const zel_event_t* event)
{
    return mmrenderer_event_get_bufferstatus(event);
}

int ZelMmRendererImpl::eventGetVolume(const zel_event_t* event)
{
    return mmrenderer_event_get_volume(event);
}

} // namespace tamomock
