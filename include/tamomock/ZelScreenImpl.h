// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_ZELSCREENIMPL_H
#define TAMOMOCK_ZELSCREENIMPL_H

#include <tamo/export.h>
#include <tamomock/ZelScreen.h>

namespace tamomock {

/**
 * The default ZelScreen: each operation calls the function that it is named after.
 *
 * @since 0.1
 */
class TAMO_EXPORT ZelScreenImpl : public ZelScreen
{
public:
    ~ZelScreenImpl() override;

    int requestEvents(int flags) override;
    int getDomain() override;
    int stopEvents(int flags) override;
    screen_event_t eventGetEvent(const zel_event_t* event) override;
};

} // namespace tamomock

#endif
