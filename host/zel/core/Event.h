// SPDX-License-Identifier: Apache-2.0
#ifndef ZEL_CORE_EVENT_H
#define ZEL_CORE_EVENT_H

#include <zel/zel.h>

#include <atomic>
#include <memory>

namespace zel {
class EventList;
}

/**
 * An event. A service's event is a class derived from this one, with its data in members; getters
 * take it for the service's by its class (dynamic_cast), since an application can make events of
 * any domain.
 */
struct zel_event
{
public:
    zel_event(int domain, int code) : m_domain(domain), m_code(code) {}
    virtual ~zel_event() = default;
    zel_event(const zel_event&) = delete;
    zel_event& operator=(const zel_event&) = delete;

    int domain() const { return m_domain; }
    int code() const { return m_code; }

    /** NULL where it has none. */
    const zel_event_payload_t* payload() const { return m_hasPayload ? &m_payload : nullptr; }
    void setPayload(const zel_event_payload_t& payload)
    {
        m_payload = payload;
        m_hasPayload = true;
    }
    void setCompletion(zel_event_completion_t completion) { m_completion = completion; }

    /** Takes it out of its maker's hands. False where that has been done before. Any thread. */
    bool claim() { return !m_isClaimed.exchange(true, std::memory_order_acq_rel); }

    /** Gives it back to its maker. */
    void unclaim() { m_isClaimed.store(false, std::memory_order_release); }

    /** Calls its completion function, which may call anything, and frees it. */
    static void complete(zel_event* event);

private:
    friend class zel::EventList;

    const int m_domain;
    const int m_code;
    std::atomic<bool> m_isClaimed{false};
    bool m_hasPayload = false;
    zel_event_payload_t m_payload{};
    zel_event_completion_t m_completion = nullptr;
    zel_event* m_next = nullptr; ///< in the list that it is in
};

namespace zel {

struct EventCompletion
{
    void operator()(zel_event* event) const { zel_event::complete(event); }
};

/** Owns an event that is claimed; its end completes the event. */
using EventPointer = std::unique_ptr<zel_event, EventCompletion>;

} // namespace zel

#endif
