// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_ZELSCREEN_H
#define TAMOMOCK_ZELSCREEN_H

#include <tamo/export.h>
#include <tamomock/ZelEventProvider.h>

#include <zel/screen.h>

namespace tamomock {

/**
 * The screen's events, as the library calls it: one operation for each function of
 * `<zel/screen.h>`, named after it without `screen_`, after those of ZelEventProvider. What a
 * function takes, returns and does is said there; an operation of a substitute keeps to it as far
 * as the code under test looks.
 *
 * @since 0.1
 */
class TAMO_EXPORT ZelScreen : public ZelEventProvider
{
public:
    ~ZelScreen() override;

    virtual screen_event_t eventGetEvent(const zel_event_t* event) = 0;
};

} // namespace tamomock

#endif
