// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ZelLedImpl.h>

namespace tamomock {

ZelLedImpl::~ZelLedImpl() = default;

int ZelLedImpl::requestEvents(int flags)
{
    return led_request_events(flags);
}

int ZelLedImpl::getDomain()
{
    return led_get_domain();
}

int ZelLedImpl::eventGetRgb(const zel_event_t* event)
{
    return led_event_get_rgb(event);
}

int ZelLedImpl::requestColor(const char* id, led_color_t color, int blinkCount)
{
    return led_request_color(id, color, blinkCount);
}

int ZelLedImpl::requestRgb(const char* id, int rgb, int blinkCount)
{
    return led_request_rgb(id, rgb, blinkCount);
}

int ZelLedImpl::cancel(const char* id)
{
    return led_cancel(id);
}

} // namespace tamomock
