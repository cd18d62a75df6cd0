// SPDX-License-Identifier: Apache-2.0
#include "Unsupported.h"

#include "core/Domain.h"

#include <zel/led.h>

int led_get_domain()
{
    return zel::number(zel::Domain::Led);
}

ZEL_UNSUPPORTED(-1, int led_request_events(int))
ZEL_UNSUPPORTED(-1, int led_event_get_rgb(const zel_event_t*))
ZEL_UNSUPPORTED(-1, int led_request_color(const char*, led_color_t, int))
ZEL_UNSUPPORTED(-1, int led_request_rgb(const char*, int, int))
ZEL_UNSUPPORTED(-1, int led_cancel(const char*))
