// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_ZELCLOCKIMPL_H
#define TAMOMOCK_ZELCLOCKIMPL_H

#include <tamo/export.h>
#include <tamomock/ZelClock.h>

namespace tamomock {

/**
 * The default ZelClock: each operation calls the function that it is named after.
 *
 * @since 0.1
 */
class TAMO_EXPORT ZelClockImpl : public ZelClock
{
public:
    ~ZelClockImpl() override;

    int requestEvents(int flags) override;
    int getDomain() override;
    int64_t eventGetDateChange(const zel_event_t* event) override;
    const char* eventGetTimeZoneChange(const zel_event_t* event) override;
};

} // namespace tamomock

#endif
