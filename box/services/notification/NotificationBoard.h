// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_NOTIFICATIONBOARD_H
#define TAMOBOX_NOTIFICATIONBOARD_H

#include "LedClient.h"
#include "NotificationList.h"
#include "NotificationStore.h"

#include "common/Timer.h"

#include <functional>

namespace tamobox {

/** The notifications, with what follows from them: they are kept, they expire, and the LED flashes
 * for one of them. */
class NotificationBoard
{
public:
    /** Called with a notification that has expired, just before it is removed. */
    using ExpiryHandler = std::function<void(const Notification&)>;

    /** @param loop must outlive the object */
    NotificationBoard(EventLoop& loop, ExpiryHandler onExpired);

    const NotificationList& list() const { return m_list; }

    /** Goes on with what was kept; nothing happens to it before expireDue(). False where nothing
     * ever was. Throws ObjectFailure. */
    bool restore();

    /**
     * Adds a notification, or changes the one that has its number.
     *
     * @throws Failure where there is no room for it, and nothing has changed; ObjectFailure
     */
    void put(const Notification& notification);

    /** Removes a notification. Throws ObjectFailure. */
    void remove(int number);

    /** The applications of all for which `isGone` returns true have gone. Throws ObjectFailure. */
    void markGone(const std::function<bool(const Notification&)>& isGone);

    /** Handles what has expired. Throws ObjectFailure. */
    void expireDue();

private:
    bool removeOldestGone();
    void changed();

    ExpiryHandler m_onExpired;
    NotificationStore m_store;
    NotificationList m_list;
    LedClient m_led;
    WallTimer m_timer;
};

} // namespace tamobox

#endif
