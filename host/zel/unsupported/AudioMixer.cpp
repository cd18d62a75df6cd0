// SPDX-License-Identifier: Apache-2.0
#include "Unsupported.h"

#include "core/Domain.h"

#include <zel/audiomixer.h>

#include <cmath>

int audiomixer_get_domain()
{
    return zel::number(zel::Domain::AudioMixer);
}

ZEL_UNSUPPORTED(-1, int audiomixer_request_events(int))
ZEL_UNSUPPORTED(-1, int audiomixer_set_output_level(audiomixer_output_t, double))
ZEL_UNSUPPORTED(-1, int audiomixer_set_input_level(audiomixer_input_t, double))
ZEL_UNSUPPORTED(-1, int audiomixer_adjust_output_level(audiomixer_output_t, double))
ZEL_UNSUPPORTED(-1, int audiomixer_adjust_input_level(audiomixer_input_t, double))
ZEL_UNSUPPORTED(-1, int audiomixer_set_output_mute(audiomixer_output_t, bool))
ZEL_UNSUPPORTED(-1, int audiomixer_set_input_mute(audiomixer_input_t, bool))
ZEL_UNSUPPORTED(-1, int audiomixer_toggle_output_mute(audiomixer_output_t))
ZEL_UNSUPPORTED(-1, int audiomixer_toggle_input_mute(audiomixer_input_t))
ZEL_UNSUPPORTED(-1, int audiomixer_get_output_level(audiomixer_output_t, double*))
ZEL_UNSUPPORTED(-1, int audiomixer_get_input_level(audiomixer_input_t, double*))
ZEL_UNSUPPORTED(-1, int audiomixer_get_output_mute(audiomixer_output_t, bool*))
ZEL_UNSUPPORTED(-1, int audiomixer_get_input_mute(audiomixer_input_t, bool*))
ZEL_UNSUPPORTED(NAN,
                double audiomixer_event_get_output_level(const zel_event_t*, audiomixer_output_t))
ZEL_UNSUPPORTED(NAN,
                double audiomixer_event_get_input_level(const zel_event_t*, audiomixer_input_t))
ZEL_UNSUPPORTED(false,
                bool audiomixer_event_get_output_mute(const zel_event_t*, audiomixer_output_t))
ZEL_UNSUPPORTED(false, bool audiomixer_event_get_input_mute(const zel_event_t*, audiomixer_input_t))
ZEL_UNSUPPORTED(false, bool audiomixer_event_get_available(const zel_event_t*))
