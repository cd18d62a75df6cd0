// SPDX-License-Identifier: Apache-2.0
#include "SubscriptionThread.h"

#include "ConnectionSubscription.h"
#include "Log.h"
#include "NeverDestroyed.h"

#include <algorithm>
#include <system_error>
#include <thread>

namespace tamo {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds firstPause{1};
constexpr milliseconds longestPause{512};

} // namespace

SubscriptionThread& SubscriptionThread::instance()
{
    static detail::NeverDestroyed<SubscriptionThread> thread;
    return *thread;
}

void SubscriptionThread::lookAt(ConnectionSubscription& subscription)
{
    const Lock lock(m_mutex);
    if (subscription.m_isForgotten)
        return;
    m_looks[&subscription] = {Clock::now(), milliseconds(0)};
    m_changed.notify_all();
    if (m_isRunning)
        return;
    try {
        std::thread([this] { run(); }).detach();
        m_isRunning = true;
    } catch (const std::system_error&) {
        // The machine has no thread left; the next connection or disconnection tries again.
        detail::logLine("SubscriptionThread::lookAt() - failed to start a thread");
    }
}

void SubscriptionThread::forget(ConnectionSubscription& subscription)
{
    Lock lock(m_mutex);
    subscription.m_isForgotten = true;
    m_looks.erase(&subscription);
    m_changed.notify_all();
    m_changed.wait(lock, [&] { return m_lookedAt != &subscription; });
}

bool SubscriptionThread::settle(milliseconds limit)
{
    Lock lock(m_mutex);
    const Look now = {Clock::now(), milliseconds(0)};
    // A look that is under way may have begun too early.
    if (m_lookedAt && !m_lookedAt->m_isForgotten)
        m_looks[m_lookedAt] = now;
    for (auto& entry : m_looks)
        entry.second = now;
    m_changed.notify_all();
    return m_changed.wait_for(lock, limit, [this] { return isSettled(); });
}

bool SubscriptionThread::isSettled() const
{
    return !(m_lookedAt && m_isFirstLook) &&
           std::none_of(m_looks.begin(), m_looks.end(),
                        [](const auto& entry) { return entry.second.pause == milliseconds(0); });
}

void SubscriptionThread::run()
{
    Lock lock(m_mutex);
    while (!m_looks.empty()) {
        const auto next =
            std::min_element(m_looks.begin(), m_looks.end(), [](const auto& a, const auto& b) {
                return a.second.due < b.second.due;
            });
        if (next->second.due > Clock::now()) {
            const Clock::time_point due = next->second.due;
            m_changed.wait_until(lock, due);
            continue;
        }
        lookAtOne(lock, *next->first);
    }
    m_isRunning = false;
}

void SubscriptionThread::lookAtOne(Lock& lock, ConnectionSubscription& subscription)
{
    const auto entry = m_looks.find(&subscription);
    const milliseconds pause = entry->second.pause;
    m_looks.erase(entry);
    m_lookedAt = &subscription;
    m_isFirstLook = pause == milliseconds(0);
    lock.unlock();
    const bool isOver = subscription.look();
    lock.lock();
    m_lookedAt = nullptr;
    const milliseconds nextPause = std::max(firstPause, pause * 2);
    // Whoever asked for a look meanwhile gets one now, and not later.
    if (!isOver && nextPause <= longestPause && !subscription.m_isForgotten)
        m_looks.try_emplace(&subscription, Look{Clock::now() + nextPause, nextPause});
    m_changed.notify_all();
}

} // namespace tamo
