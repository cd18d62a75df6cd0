// SPDX-License-Identifier: Apache-2.0
#include "EventPlatform.h"

#include <tamomock/ZelApi.h>
#include <tamomock/ZelCoreImpl.h>
#include <tamomock/ZelNavigatorImpl.h>
#include <tamomock/ZelNetStatusImpl.h>

#include <chrono>
#include <stdexcept>

namespace tamobench {

class EventPlatform::Core : public tamomock::ZelCoreImpl
{
public:
    explicit Core(EventPlatform& platform) : m_platform(platform) {}

    // The library asks for it in the dispatch thread.
    int channelGetActive() override
    {
        const int channel = ZelCoreImpl::channelGetActive();
        m_platform.m_channel = channel;
        return channel;
    }

    // The library stops the thread, then shuts down twice: for the thread and for the subscription.
    int shutdown() override
    {
        m_platform.stopped();
        return ZelCoreImpl::shutdown();
    }

private:
    EventPlatform& m_platform;
};

class EventPlatform::Navigator : public tamomock::ZelNavigatorImpl
{
public:
    explicit Navigator(EventPlatform& platform) : m_platform(platform) {}

    int orientationCheckResponseId(const char*, bool) override
    {
        m_platform.onCheckAnswered();
        return 0;
    }

private:
    EventPlatform& m_platform;
};

// What is pushed has its state in the payload.
class EventPlatform::NetStatus : public tamomock::ZelNetStatusImpl
{
public:
    bool eventGetAvailability(const zel_event_t* event) override
    {
        return zel_event_get_payload(event)->data1 != 0;
    }
};

EventPlatform::EventPlatform()
{
    auto domains = tamomock::ZelApi::defaultDomains();
    domains.core = std::make_unique<Core>(*this);
    domains.navigator = std::make_unique<Navigator>(*this);
    domains.netStatus = std::make_unique<NetStatus>();
    m_api = std::make_unique<tamomock::ZelApi>(std::move(domains));
    tamomock::ZelApi::setInstance(m_api.get());
}

EventPlatform::~EventPlatform()
{
    tamomock::ZelApi::clearInstance(m_api.get());
}

void EventPlatform::push(int code)
{
    push(navigator_get_domain(), code, nullptr);
}

void EventPlatform::pushReport(bool isAvailable)
{
    const zel_event_payload_t payload = {isAvailable ? 1U : 0U, 0, 0};
    push(netstatus_get_domain(), NETSTATUS_INFO, &payload);
}

void EventPlatform::push(int domain, int code, const zel_event_payload_t* payload)
{
    zel_event_t* event = nullptr;
    if (zel_event_create(&event, domain, code, payload, nullptr) != 0)
        throw std::runtime_error("zel_event_create failed");
    if (zel_channel_push_event(m_channel, event) != 0) {
        zel_event_destroy(event);
        throw std::runtime_error("zel_channel_push_event failed");
    }
}

void EventPlatform::stopped()
{
    const std::lock_guard lock(m_mutex);
    ++m_stops;
    m_stop.notify_all();
}

void EventPlatform::awaitStops(long count)
{
    constexpr int shutdownsOfAStop = 2;
    std::unique_lock lock(m_mutex);
    if (!m_stop.wait_for(lock, std::chrono::seconds(10),
                         [&] { return m_stops >= count * shutdownsOfAStop; }))
        throw std::runtime_error("the dispatch thread does not stop");
}

} // namespace tamobench
