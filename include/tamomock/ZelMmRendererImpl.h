// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_ZELMMRENDERERIMPL_H
#define TAMOMOCK_ZELMMRENDERERIMPL_H

#include <tamo/export.h>
#include <tamomock/ZelMmRenderer.h>

namespace tamomock {

/**
 * The default ZelMmRenderer: each operation calls the function that it is named after.
 *
 * @since 0.1
 */
class TAMO_EXPORT ZelMmRendererImpl : public ZelMmRenderer
{
public:
    ~ZelMmRendererImpl() override;

    int requestEvents(int flags) override;
    int getDomain() override;
    int stopEvents(int flags) override;
    const char* eventGetUserdata(const zel_event_t* event) override;
    mmrenderer_state_t eventGetState(const zel_event_t* event) override;
    double eventGetSpeed(const zel_event_t* event) override;
    int eventGetError(const zel_event_t* event) override;
    int64_t eventGetErrorPosition(const zel_event_t* event) override;
    const char* eventGetWarning(const zel_event_t* event) override;
    int64_t eventGetWarningPosition(const zel_event_t* event) override;
    int64_t eventGetPosition(const zel_event_t* event) override;
    int eventGetBufferlevel(const zel_event_t* event) override;
    mmrenderer_bufferstatus_t eventGetBufferstatus(const zel_event_t* event) override;
    int eventGetVolume(const zel_event_t* event) override;
};

} // namespace tamomock

#endif
