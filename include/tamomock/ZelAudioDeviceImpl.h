// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_ZELAUDIODEVICEIMPL_H
#define TAMOMOCK_ZELAUDIODEVICEIMPL_H

#include <tamo/export.h>
#include <tamomock/ZelAudioDevice.h>

namespace tamomock {

/**
 * The default ZelAudioDevice: each operation calls the function that it is named after.
 *
 * @since 0.1
 */
class TAMO_EXPORT ZelAudioDeviceImpl : public ZelAudioDevice
{
public:
    ~ZelAudioDeviceImpl() override;

    int requestEvents(int flags) override;
    int getDomain() override;
    int get(char** device, audiodevice_path_t* path) override;
    int getDetails(const char* device, audiodevice_details_t** details) override;
    void freeDetails(audiodevice_details_t** details) override;
    const char* eventGetDevice(const zel_event_t* event) override;
    audiodevice_path_t eventGetPath(const zel_event_t* event) override;
};

} // namespace tamomock

#endif
