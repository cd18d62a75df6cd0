// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_ZELMMRENDERER_H
#define TAMOMOCK_ZELMMRENDERER_H

#include <tamo/export.h>
#include <tamomock/ZelEventProvider.h>

#include <zel/mmrenderer.h>

namespace tamomock {

/**
 * The multimedia renderer, as the library calls it: one operation for each function of
 * `<zel/mmrenderer.h>`, named after it without `mmrenderer_`, after those of ZelEventProvider. What
 * a function takes, returns and does is said there; an operation of a substitute keeps to it as far
 * as the code under test looks.
 *
 * @since 0.1
 */
class TAMO_EXPORT ZelMmRenderer : public ZelEventProvider
{
public:
    ~ZelMmRenderer() override;

    virtual const char* eventGetUserdata(const zel_event_t* event) = 0;
    virtual mmrenderer_state_t eventGetState(const zel_event_t* event) = 0;
    virtual double eventGetSpeed(const zel_event_t* event) = 0;
    virtual int eventGetError(const zel_event_t* event) = 0;
    virtual int64_t eventGetErrorPosition(const zel_event_t* event) = 0;
    virtual const char* eventGetWarning(const zel_event_t* event) = 0;
    virtual int64_t eventGetWarningPosition(const zel_event_t* event) = 0;
    virtual int64_t eventGetPosition(const zel_event_t* event) = 0;
    virtual int eventGetBufferlevel(const zel_event_t* event) = 0;
    virtual mmrenderer_bufferstatus_t eventGetBufferstatus(const zel_event_t* event) = 0;
    virtual int eventGetVolume(const zel_event_t* event) = 0;
};

} // namespace tamomock

#endif
