// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_ZELORIENTATION_H
#define TAMOMOCK_ZELORIENTATION_H

#include <tamo/export.h>
#include <tamomock/ZelEventProvider.h>

#include <zel/orientation.h>

namespace tamomock {

/**
 * The device's orientation, as the library calls it: one operation for each function of
 * `<zel/orientation.h>`, named after it without `orientation_`, after those of ZelEventProvider.
 * What a function takes, returns and does is said there; an operation of a substitute keeps to it
 * as far as the code under test looks.
 *
 * @since 0.1
 */
class TAMO_EXPORT ZelOrientation : public ZelEventProvider
{
public:
    ~ZelOrientation() override;

    virtual int get(orientation_direction_t* direction, int* angle) = 0;
    virtual orientation_direction_t eventGetDirection(const zel_event_t* event) = 0;
    virtual int eventGetAngle(const zel_event_t* event) = 0;
};

} // namespace tamomock

#endif
