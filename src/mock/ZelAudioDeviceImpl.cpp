// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ZelAudioDeviceImpl.h>

namespace tamomock {

ZelAudioDeviceImpl::~ZelAudioDeviceImpl() = default;

int ZelAudioDeviceImpl::requestEvents(int flags)
{
    return audiodevice_request_events(flags);
}

int ZelAudioDeviceImpl::getDomain()
{
    return audiodevice_get_domain();
}

int ZelAudioDeviceImpl::get(char** device, audiodevice_path_t* path)
{
    return audiodevice_get(device, path);
}

int ZelAudioDeviceImpl::getDetails(const char* device, audiodevice_details_t** details)
{
    return audiodevice_get_details(device, details);
}

void ZelAudioDeviceImpl::freeDetails(audiodevice_details_t** details)
{
    audiodevice_free_details(details);
}

const char* ZelAudioDeviceImpl::eventGetDevice(const zel_event_t* event)
{
    return audiodevice_event_get_device(event);
}

audiodevice_path_t ZelAudioDeviceImpl::eventGetPath(const zel_event_t* event)
{
    return audiodevice_event_get_path(event);
}

} // namespace tamomock
