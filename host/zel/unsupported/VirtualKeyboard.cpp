// SPDX-License-Identifier: Apache-2.0
#include "Unsupported.h"

#include "core/Domain.h"

#include <zel/virtualkeyboard.h>

int virtualkeyboard_get_domain()
{
    return zel::number(zel::Domain::VirtualKeyboard);
}

ZEL_UNSUPPORTED(-1, int virtualkeyboard_request_events(int))
ZEL_UNSUPPORTED(-1, int virtualkeyboard_show())
ZEL_UNSUPPORTED(-1, int virtualkeyboard_hide())
ZEL_UNSUPPORTED(-1, int virtualkeyboard_change_options(virtualkeyboard_layout_t,
                                                       virtualkeyboard_enter_t))
ZEL_UNSUPPORTED(-1, int virtualkeyboard_get_height(int*))
ZEL_UNSUPPORTED(-1, int virtualkeyboard_event_get_height(const zel_event_t*))
