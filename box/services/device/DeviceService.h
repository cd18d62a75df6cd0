// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_DEVICESERVICE_H
#define TAMOBOX_DEVICESERVICE_H

namespace tamobox {

class EventLoop;

/**
 * What the phone is: publishes its data and what identifies it, once. What has been published
 * before stays as it is.
 */
class DeviceService
{
public:
    /** Publishes. Throws ObjectFailure. */
    explicit DeviceService(EventLoop& loop);
};

} // namespace tamobox

#endif
