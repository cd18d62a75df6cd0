// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_ZELLED_H
#define TAMOMOCK_ZELLED_H

#include <tamo/export.h>
#include <tamomock/ZelEventProvider.h>

#include <zel/led.h>

namespace tamomock {

/**
 * The notification LED, as the library calls it: one operation for each function of `<zel/led.h>`,
 * named after it without `led_`, after those of ZelEventProvider. What a function takes, returns
 * and does is said there; an operation of a substitute keeps to it as far as the code under test
 * looks.
 *
 * @since 0.1
 */
class TAMO_EXPORT ZelLed : public ZelEventProvider
{
public:
    ~ZelLed() override;

    virtual int eventGetRgb(const zel_event_t* event) = 0;
    virtual int requestColor(const char* id, led_color_t color, int blinkCount) = 0;
    virtual int requestRgb(const char* id, int rgb, int blinkCount) = 0;
    virtual int cancel(const char* id) = 0;
};

} // namespace tamomock

#endif
