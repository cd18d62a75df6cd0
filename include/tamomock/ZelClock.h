// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_ZELCLOCK_H
#define TAMOMOCK_ZELCLOCK_H

#include <tamo/export.h>
#include <tamomock/ZelEventProvider.h>

#include <zel/clock.h>

namespace tamomock {

/**
 * The clock, as the library calls it: one operation for each function of `<zel/clock.h>`, named
 * after it without `clock_`, after those of ZelEventProvider. What a function takes, returns and
 * does is said there; an operation of a substitute keeps to it as far as the code under test looks.
 *
 * @since 0.1
 */
class TAMO_EXPORT ZelClock : public ZelEventProvider
{
public:
    ~ZelClock() override;

    virtual int64_t eventGetDateChange(const zel_event_t* event) = 0;
    virtual const char* eventGetTimeZoneChange(const zel_event_t* event) = 0;
};

} // namespace tamomock

#endif
