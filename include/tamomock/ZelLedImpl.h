// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_ZELLEDIMPL_H
#define TAMOMOCK_ZELLEDIMPL_H

#include <tamo/export.h>
#include <tamomock/ZelLed.h>

namespace tamomock {

/**
 * The default ZelLed: each operation calls the function that it is named after.
 *
 * @since 0.1
 */
class TAMO_EXPORT ZelLedImpl : public ZelLed
{
public:
    ~ZelLedImpl() override;

    int requestEvents(int flags) override;
    int getDomain() override;
    int eventGetRgb(const zel_event_t* event) override;
    int requestColor(const char* id, led_color_t color, int blinkCount) override;
    int requestRgb(const char* id, int rgb, int blinkCount) override;
    int cancel(const char* id) override;
};

} // namespace tamomock

#endif
