// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_ZELAUDIODEVICE_H
#define TAMOMOCK_ZELAUDIODEVICE_H

#include <tamo/export.h>
#include <tamomock/ZelEventProvider.h>

#include <zel/audiodevice.h>

namespace tamomock {

/**
 * The audio devices, as the library calls it: one operation for each function of
 * `<zel/audiodevice.h>`, named after it without `audiodevice_`, after those of ZelEventProvider.
 * What a function takes, returns and does is said there; an operation of a substitute keeps to it
 * as far as the code under test looks.
 *
 * @since 0.1
 */
class TAMO_EXPORT ZelAudioDevice : public ZelEventProvider
{
public:
    ~ZelAudioDevice() override;

    virtual int get(char** device, audiodevice_path_t* path) = 0;
    virtual int getDetails(const char* device, audiodevice_details_t** details) = 0;
    virtual void freeDetails(audiodevice_details_t** details) = 0;
    virtual const char* eventGetDevice(const zel_event_t* event) = 0;
    virtual audiodevice_path_t eventGetPath(const zel_event_t* event) = 0;
};

} // namespace tamomock

#endif
