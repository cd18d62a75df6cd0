// SPDX-License-Identifier: Apache-2.0
#include "Topic.h"

#include "Limits.h"
#include "Subscription.h"

#include <cerrno>

namespace ppsfs {

std::size_t Topic::textSize() const
{
    return m_publication == 0 ? 0 : m_heading.size() + m_attributes.size();
}

std::string_view Topic::text()
{
    if (m_text.empty() && m_publication != 0) {
        m_text.reserve(textSize());
        m_text = m_heading;
        m_attributes.appendTo(m_text);
    }
    return m_text;
}

std::optional<std::string_view> Topic::changesSince(std::uint64_t publication)
{
    if (m_changesTo != m_publication || m_changesFrom != publication) {
        m_changes = m_heading;
        m_changesTo = 0;
        const std::size_t room = limits::TextSize - m_heading.size();
        if (!m_attributes.appendChangesTo(m_changes, publication, room))
            return std::nullopt;
        m_changesFrom = publication;
        m_changesTo = m_publication;
    }
    return m_changes;
}

int Topic::publish(const Update& update, bool replace, const Subscription& publisher)
{
    if (m_heading.size() + m_attributes.sizeAfter(update, replace) > limits::TextSize)
        return EFBIG;
    m_attributes.merge(update, replace, ++m_publication);
    m_text.clear();
    for (Subscription* const subscription : m_subscriptions) {
        if (subscription != &publisher)
            subscription->tell();
    }
    return 0;
}

void Topic::clear()
{
    m_attributes.clear();
    m_publication = 0;
    m_text = std::string();
    m_changes = std::string();
    m_changesTo = 0;
}

void Topic::add(Subscription& subscription)
{
    subscription.m_place = m_subscriptions.size();
    m_subscriptions.push_back(&subscription);
    if (subscription.m_changes && m_changesReaders++ == 0)
        m_attributes.rememberDeleted(true);
}

void Topic::remove(Subscription& subscription)
{
    m_subscriptions.back()->m_place = subscription.m_place;
    m_subscriptions[subscription.m_place] = m_subscriptions.back();
    m_subscriptions.pop_back();
    if (subscription.m_changes && --m_changesReaders == 0)
        m_attributes.rememberDeleted(false);
}

} // namespace ppsfs
