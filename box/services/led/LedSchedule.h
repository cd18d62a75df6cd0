// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_LEDSCHEDULE_H
#define TAMOBOX_LEDSCHEDULE_H

#include "LedState.h"

#include <chrono>
#include <optional>

namespace tamobox {

/**
 * When the LED is lit, and for whom. The newest request is shown; when it ends, the one before goes
 * on with what remains of it. Each flash is lit for `flashTime`, also where its request ends
 * meanwhile, and `pauseTime` of darkness at least comes between two: whoever follows the changes
 * sees each of them.
 */
class LedSchedule
{
public:
    using Clock = std::chrono::steady_clock;

    static constexpr auto flashTime = std::chrono::milliseconds(250);
    static constexpr auto pauseTime = std::chrono::milliseconds(250);

    /** @param darkSince when the LED went out */
    explicit LedSchedule(Clock::time_point darkSince) : m_lastChange(darkSince) {}

    const LedState& state() const { return m_state; }

    /** Adds a request as the newest, in the place of one of the same client and id. */
    void add(const LedRequest& request);

    /** Goes on with requests from before; those that have nothing left to show are left out. */
    void restore(const std::vector<LedRequest>& requests);

    /** Removes a request; one that is not there is no error. */
    void cancel(int client, const std::string& id);

    /** Removes every request for which `isGone` returns true; returns their number. */
    template<typename Predicate>
    std::size_t removeIf(Predicate isGone);

    /** Removes every request of a client. */
    void forget(int client);

    /**
     * Lights the LED, or puts it out, where that is due; one change at a time.
     *
     * @return whether it has changed
     */
    bool advance(Clock::time_point now);

    /** When it will change; nothing where it stays dark. */
    std::optional<Clock::time_point> nextChange() const;

private:
    LedState m_state;
    Clock::time_point m_lastChange;
};

template<typename Predicate>
std::size_t LedSchedule::removeIf(Predicate isGone)
{
    std::vector<LedRequest> kept;
    for (LedRequest& request : m_state.requests)
        if (!isGone(request))
            kept.push_back(std::move(request));
    const std::size_t removed = m_state.requests.size() - kept.size();
    m_state.requests = std::move(kept);
    return removed;
}

} // namespace tamobox

#endif
