// SPDX-License-Identifier: Apache-2.0
#include "Subscription.h"

#include "Listener.h"
#include "Topic.h"

namespace ppsfs {

Subscription::Subscription(Topic& topic, Listener& listener, bool reads, bool changes)
    : m_topic(topic)
    , m_listener(listener)
    , m_reads(reads)
    , m_changes(changes && reads)
    , m_hasNews(reads && topic.publication() != 0)
{
    m_topic.add(*this);
}

Subscription::~Subscription()
{
    m_topic.remove(*this);
}

std::string_view Subscription::message()
{
    m_startsAgain = false;
    if (!m_changes || m_hasRead == 0)
        return m_topic.text();
    if (const auto changes = m_topic.changesSince(m_hasRead))
        return *changes;
    m_startsAgain = true;
    return m_topic.removal();
}

void Subscription::consume()
{
    m_hasNews = m_startsAgain;
    m_hasRead = m_startsAgain ? 0 : m_topic.publication();
}

int Subscription::write(std::string_view text, bool replace)
{
    std::string_view heading = m_topic.heading();
    heading.remove_suffix(1);
    Update update;
    if (const int error = update.parse(text, heading))
        return error;
    return m_topic.publish(update, replace, *this);
}

void Subscription::tell()
{
    if (!m_reads)
        return;
    m_hasNews = true;
    m_listener.wake();
}

} // namespace ppsfs
