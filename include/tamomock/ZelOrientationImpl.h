// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_ZELORIENTATIONIMPL_H
#define TAMOMOCK_ZELORIENTATIONIMPL_H

#include <tamo/export.h>
#include <tamomock/ZelOrientation.h>

namespace tamomock {

/**
 * The default ZelOrientation: each operation calls the function that it is named after.
 *
 * @since 0.1
 */
class TAMO_EXPORT ZelOrientationImpl : public ZelOrientation
{
public:
    ~ZelOrientationImpl() override;

    int requestEvents(int flags) override;
    int getDomain() override;
    int get(orientation_direction_t* direction, int* angle) override;
    orientation_direction_t eventGetDirection(const zel_event_t* event) override;
    int eventGetAngle(const zel_event_t* event) override;
};

} // namespace tamomock

#endif
