// SPDX-License-Identifier: Apache-2.0
#include "Unsupported.h"

#include "core/Domain.h"

#include <zel/mmrenderer.h>

#include <cmath>

int mmrenderer_get_domain()
{
    return zel::number(zel::Domain::MmRenderer);
}

ZEL_UNSUPPORTED(-1, int mmrenderer_request_events(int))
ZEL_UNSUPPORTED(-1, int mmrenderer_stop_events(int))
ZEL_UNSUPPORTED(nullptr, const char* mmrenderer_event_get_userdata(const zel_event_t*))
ZEL_UNSUPPORTED(MMRENDERER_STATE_UNKNOWN,
                mmrenderer_state_t mmrenderer_event_get_state(const zel_event_t*))
ZEL_UNSUPPORTED(NAN, double mmrenderer_event_get_speed(const zel_event_t*))
ZEL_UNSUPPORTED(-1, int mmrenderer_event_get_error(const zel_event_t*))
ZEL_UNSUPPORTED(-1, int64_t mmrenderer_event_get_error_position(const zel_event_t*))
ZEL_UNSUPPORTED(nullptr, const char* mmrenderer_event_get_warning(const zel_event_t*))
ZEL_UNSUPPORTED(-1, int64_t mmrenderer_event_get_warning_position(const zel_event_t*))
ZEL_UNSUPPORTED(-1, int64_t mmrenderer_event_get_position(const zel_event_t*))
ZEL_UNSUPPORTED(-1, int mmrenderer_event_get_bufferlevel(const zel_event_t*))
ZEL_UNSUPPORTED(MMRENDERER_BUFFER_UNKNOWN,
                mmrenderer_bufferstatus_t mmrenderer_event_get_bufferstatus(const zel_event_t*))
ZEL_UNSUPPORTED(-1, int mmrenderer_event_get_volume(const zel_event_t*))
