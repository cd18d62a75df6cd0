// SPDX-License-Identifier: Apache-2.0
#include "Unsupported.h"

#include "core/Domain.h"

#include <zel/audiodevice.h>

int audiodevice_get_domain()
{
    return zel::number(zel::Domain::AudioDevice);
}

int audiodevice_get_details(const char*, audiodevice_details_t** details)
{
    return zel::unsupportedRecord(details);
}

void audiodevice_free_details(audiodevice_details_t** details)
{
    zel::freeUnsupportedRecord(details);
}

ZEL_UNSUPPORTED(-1, int audiodevice_request_events(int))
ZEL_UNSUPPORTED(-1, int audiodevice_get(char**, audiodevice_path_t*))
ZEL_UNSUPPORTED(nullptr, const char* audiodevice_event_get_device(const zel_event_t*))
ZEL_UNSUPPORTED(AUDIODEVICE_PATH_UNKNOWN,
                audiodevice_path_t audiodevice_event_get_path(const zel_event_t*))
