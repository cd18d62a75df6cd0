// SPDX-License-Identifier: Apache-2.0
#include "NotificationList.h"

#include "IdMatch.h"

#include "common/Failure.h"
#include "common/Printable.h"

#include <algorithm>

namespace tamobox {

namespace {

constexpr std::size_t mostNamed = 5;

std::string idsOf(const std::vector<const Notification*>& notifications)
{
    std::string ids;
    for (std::size_t i = 0; i < std::min(notifications.size(), mostNamed); ++i)
        ids += (ids.empty() ? "" : ", ") + printable(notifications[i]->id);
    return notifications.size() > mostNamed ? ids + " ..." : ids;
}

std::string processesOf(const std::vector<const Notification*>& notifications)
{
    std::string processes;
    for (const Notification* const notification : notifications)
        processes += (processes.empty() ? "" : ", ") + std::to_string(notification->process);
    return processes;
}

} // namespace

void NotificationList::put(const Notification& notification)
{
    m_notifications[notification.number] = notification;
    m_lastNumber = std::max(m_lastNumber, notification.number);
}

const Notification* NotificationList::findOf(int client, const std::string& id) const
{
    const Notification* left = nullptr;
    for (const auto& [number, notification] : m_notifications) {
        if (notification.id != id)
            continue;
        if (notification.client == client)
            return &notification;
        if (notification.isGone)
            left = &notification;
    }
    return left;
}

const Notification& NotificationList::find(const std::string& id,
                                           const std::optional<pid_t>& process) const
{
    std::vector<const Notification*> candidates;
    std::vector<const Notification*> exact;
    std::vector<const Notification*> matching;
    for (const auto& [number, notification] : m_notifications) {
        if (process && notification.process != *process)
            continue;
        candidates.push_back(&notification);
        if (notification.id == id)
            exact.push_back(&notification);
        else if (isBeginningOf(notification.id, id))
            matching.push_back(&notification);
    }
    if (exact.size() == 1)
        return *exact[0];
    if (exact.size() > 1)
        throw Failure(std::to_string(exact.size()) + " notifications have the id '" + id +
                      "', of the processes " + processesOf(exact) +
                      "; name one with --application");
    if (matching.size() == 1)
        return *matching[0];
    if (matching.size() > 1)
        throw Failure("several notifications begin with '" + id + "': " + idsOf(matching) +
                      "; give more of the id");
    const std::string whose = process ? " of process " + std::to_string(*process) : std::string();
    throw Failure(
        "there is no notification '" + id + '\'' + whose +
        (candidates.empty() ? "; there is none at all" : "; there are: " + idsOf(candidates)));
}

std::vector<const Notification*> NotificationList::of(int client) const
{
    std::vector<const Notification*> found;
    for (const auto& [number, notification] : m_notifications)
        if (notification.client == client)
            found.push_back(&notification);
    return found;
}

std::vector<const Notification*> NotificationList::gone() const
{
    std::vector<const Notification*> found;
    for (const auto& [number, notification] : m_notifications)
        if (notification.isGone)
            found.push_back(&notification);
    return found;
}

std::vector<Notification> NotificationList::expiredAt(std::int64_t now) const
{
    std::vector<Notification> expired;
    for (const auto& [number, notification] : m_notifications)
        if (notification.expirationTime && *notification.expirationTime <= now)
            expired.push_back(notification);
    return expired;
}

std::optional<std::int64_t> NotificationList::nextExpiration() const
{
    std::optional<std::int64_t> next;
    for (const auto& [number, notification] : m_notifications)
        if (const auto& expires = notification.expirationTime)
            next = std::min(next.value_or(*expires), *expires);
    return next;
}

const Notification* NotificationList::forLed() const
{
    const auto shows = [](const auto& entry) {
        const Notification& notification = entry.second;
        return notification.ledColor != LedColor::None && !notification.isOpened &&
               !notification.isGone;
    };
    const auto found = std::find_if(m_notifications.rbegin(), m_notifications.rend(), shows);
    return found == m_notifications.rend() ? nullptr : &found->second;
}

std::size_t sizeOf(const Notification& notification)
{
    constexpr std::size_t frame = 256;
    const auto size = [](const std::optional<std::string>& text) {
        return text ? text->size() : 0;
    };
    std::size_t sum = frame + notification.id.size() + notification.text.size() +
                      size(notification.context) + size(notification.sound) +
                      size(notification.icon);
    for (const NotificationChoice& choice : notification.choices)
        sum += choice.id.size() + choice.label.size() + size(choice.context) + frame / 8;
    return sum;
}

} // namespace tamobox
