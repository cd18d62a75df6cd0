// SPDX-License-Identifier: Apache-2.0
#include "LedSchedule.h"

namespace tamobox {

namespace {

bool isShown(const LedRequest& request)
{
    return request.remaining == 0;
}

} // namespace

void LedSchedule::add(const LedRequest& request)
{
    cancel(request.client, request.id);
    m_state.requests.insert(m_state.requests.begin(), request);
}

void LedSchedule::restore(const std::vector<LedRequest>& requests)
{
    m_state.requests = requests;
    removeIf(isShown);
}

void LedSchedule::cancel(int client, const std::string& id)
{
    removeIf([&](const LedRequest& request) { return request.isOf(client, id); });
}

void LedSchedule::forget(int client)
{
    removeIf([client](const LedRequest& request) { return request.client == client; });
}

bool LedSchedule::advance(Clock::time_point now)
{
    const auto due = nextChange();
    if (!due || *due > now)
        return false;
    // Counted from now: a late change does not make the next one follow too closely.
    m_lastChange = now;
    if (m_state.lit != LedColor::None) {
        m_state.lit = LedColor::None;
        m_state.litFor.reset();
        removeIf(isShown);
        return true;
    }
    LedRequest& shown = m_state.requests.front();
    m_state.lit = shown.color;
    if (shown.remaining > 0)
        --shown.remaining;
    m_state.litFor = shown;
    return true;
}

std::optional<LedSchedule::Clock::time_point> LedSchedule::nextChange() const
{
    if (m_state.lit != LedColor::None)
        return m_lastChange + flashTime;
    if (m_state.requests.empty())
        return std::nullopt;
    return m_lastChange + pauseTime;
}

} // namespace tamobox
