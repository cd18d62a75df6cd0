// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_NOTIFICATIONSTORE_H
#define TAMOBOX_NOTIFICATIONSTORE_H

#include "Notification.h"

#include "services/Publisher.h"

namespace tamobox {

/** Keeps the notifications in `/pps/box/notifications`, an attribute for each, where they outlive
 * the service and are read by `tamo-box`. */
class NotificationStore
{
public:
    /** @throws ObjectFailure */
    NotificationStore();

    /** What is kept; nothing where nothing ever was. Throws ObjectFailure. */
    std::optional<std::vector<Notification>> read() const;

    /**
     * Keeps a notification, instead of the one that has its number.
     *
     * @return false, and nothing has changed, where there is no room for it
     * @throws ObjectFailure
     */
    bool save(const Notification& notification);

    /** Keeps it no longer. Throws ObjectFailure. */
    void erase(int number);

private:
    Publisher m_publisher;
};

} // namespace tamobox

#endif
