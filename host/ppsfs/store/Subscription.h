// SPDX-License-Identifier: Apache-2.0
#ifndef PPSFS_SUBSCRIPTION_H
#define PPSFS_SUBSCRIPTION_H

#include "Endpoint.h"

#include <cstddef>
#include <cstdint>

namespace ppsfs {

class Listener;
class Topic;

/** A handle on an ordinary object: publishes to it and reads what others publish. */
class Subscription final : public Endpoint
{
public:
    /**
     * @param reads whether it is told of publications at all
     * @param changes whether it reads changed lines only, after the first message
     */
    Subscription(Topic& topic, Listener& listener, bool reads, bool changes);
    ~Subscription() override;
    Subscription(const Subscription&) = delete;
    Subscription& operator=(const Subscription&) = delete;

    bool hasMessage() const override { return m_hasNews; }
    std::string_view message() override;
    void consume() override;
    int write(std::string_view text, bool replace) override;

private:
    friend class Topic;
    void tell();

    Topic& m_topic;
    Listener& m_listener;
    const bool m_reads;
    const bool m_changes;
    bool m_hasNews = false;
    bool m_startsAgain = false;  ///< the message is the one that a whole object follows
    std::uint64_t m_hasRead = 0; ///< the last publication that was read; 0: none
    std::size_t m_place = 0;     ///< in the topic's list
};

} // namespace ppsfs

#endif
