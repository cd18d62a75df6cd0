// SPDX-License-Identifier: Apache-2.0
#include "NotificationBoard.h"

#include "common/Failure.h"

#include <algorithm>
#include <chrono>

namespace tamobox {

namespace {

using WallClock = std::chrono::system_clock;
using std::chrono::milliseconds;

constexpr int mostOfAClient = 1024;
constexpr std::size_t mostBytesOfAClient = std::size_t{384} * 1024;
constexpr std::size_t mostGone = 64;

// What a moment of the clock can hold, and the timer waits for.
constexpr auto latestMoment = std::chrono::duration_cast<milliseconds>(WallClock::duration::max());

std::int64_t now()
{
    return std::chrono::duration_cast<milliseconds>(WallClock::now().time_since_epoch()).count();
}

} // namespace

NotificationBoard::NotificationBoard(EventLoop& loop, ExpiryHandler onExpired)
    : m_onExpired(std::move(onExpired)), m_led(loop), m_timer(loop, [this] { expireDue(); })
{
}

bool NotificationBoard::restore()
{
    const auto kept = m_store.read();
    if (!kept)
        return false;
    for (const Notification& notification : *kept)
        m_list.put(notification);
    return true;
}

void NotificationBoard::put(const Notification& notification)
{
    int count = 1;
    std::size_t bytes = sizeOf(notification);
    for (const Notification* const other : m_list.of(notification.client)) {
        if (other->number == notification.number)
            continue;
        ++count;
        bytes += sizeOf(*other);
    }
    if (count > mostOfAClient)
        throw Failure("it has posted " + std::to_string(mostOfAClient) + " notifications already");
    if (bytes > mostBytesOfAClient)
        throw Failure("its notifications would take more than " +
                      std::to_string(mostBytesOfAClient) + " bytes");
    while (!m_store.save(notification))
        if (!removeOldestGone())
            throw Failure("there is no room for more notifications");
    m_list.put(notification);
    changed();
}

void NotificationBoard::remove(int number)
{
    m_store.erase(number);
    m_list.remove(number);
    changed();
}

void NotificationBoard::markGone(const std::function<bool(const Notification&)>& isGone)
{
    std::vector<Notification> leaving;
    for (const auto& [number, notification] : m_list.all())
        if (!notification.isGone && isGone(notification))
            leaving.push_back(notification);
    for (Notification& notification : leaving) {
        notification.isGone = true;
        m_list.put(notification);
    }
    while (m_list.gone().size() > mostGone)
        removeOldestGone();
    for (const Notification& notification : leaving)
        if (m_list.all().count(notification.number) != 0)
            m_store.save(notification);
    changed();
}

void NotificationBoard::expireDue()
{
    for (const Notification& notification : m_list.expiredAt(now())) {
        m_onExpired(notification);
        remove(notification.number);
    }
    changed();
}

bool NotificationBoard::removeOldestGone()
{
    const std::vector<const Notification*> gone = m_list.gone();
    if (gone.empty())
        return false;
    const int number = gone.front()->number;
    m_store.erase(number);
    m_list.remove(number);
    return true;
}

void NotificationBoard::changed()
{
    const Notification* const forLed = m_list.forLed();
    m_led.show(forLed == nullptr ? std::nullopt
                                 : std::optional(LedWish{forLed->id, forLed->ledColor}));
    if (const auto next = m_list.nextExpiration())
        m_timer.startAt(
            WallClock::time_point(std::clamp(milliseconds(*next), milliseconds(0), latestMoment)));
    else
        m_timer.stop();
}

} // namespace tamobox
