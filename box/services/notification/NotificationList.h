// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_NOTIFICATIONLIST_H
#define TAMOBOX_NOTIFICATIONLIST_H

#include "Notification.h"

#include <map>

namespace tamobox {

/** The notifications, in the order in which they were posted first. */
class NotificationList
{
public:
    const std::map<int, Notification>& all() const { return m_notifications; }

    /** The number for a notification that is new. */
    int nextNumber() const { return m_lastNumber + 1; }

    /** Puts a notification in the place that its number says, instead of the one that is there. */
    void put(const Notification& notification);

    void remove(int number) { m_notifications.erase(number); }

    /**
     * The notification that an application means by an id: its own; or else one whose application
     * has gone, because it may be the same one, which has come back. Null where there is none.
     */
    const Notification* findOf(int client, const std::string& id) const;

    /**
     * The notification that a person means.
     *
     * @param id the whole of it, or as much from its beginning, with or without the brace, as no
     * other has
     * @param process whose it is; nothing: anybody's
     * @throws Failure where there is none, or more than one
     */
    const Notification& find(const std::string& id, const std::optional<pid_t>& process) const;

    /** Those of a client. */
    std::vector<const Notification*> of(int client) const;

    /** Those whose application has gone, the oldest first. */
    std::vector<const Notification*> gone() const;

    /** Those that have expired at a moment, in milliseconds since the epoch. */
    std::vector<Notification> expiredAt(std::int64_t now) const;

    /** When the next one expires, in milliseconds since the epoch; nothing where none does. */
    std::optional<std::int64_t> nextExpiration() const;

    /** The last one that makes the LED flash: it has a colour, was not opened, and its application
     * is there. Null where there is none. */
    const Notification* forLed() const;

private:
    std::map<int, Notification> m_notifications; // by number
    int m_lastNumber = 0;
};

/** About how much room a notification takes, in bytes. */
std::size_t sizeOf(const Notification& notification);

} // namespace tamobox

#endif
