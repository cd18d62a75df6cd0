// SPDX-License-Identifier: Apache-2.0
#include "ChannelTable.h"
#include "Domain.h"
#include "Event.h"
#include "ThreadState.h"
#include "common/Call.h"

#include <zel/zel.h>

#include <new>

using zel::Channel;
using zel::ThreadState;

namespace {

int push(int channel, zel_event_t* event)
{
    if (!event->claim())
        return EINVAL;
    const int error = zel::ChannelTable::instance().push(channel, event);
    if (error)
        event->unclaim();
    return error;
}

} // namespace

int zel_event_create(zel_event_t** event, int domain, int code, const zel_event_payload_t* payload,
                     zel_event_completion_t completion)
{
    return host::call([&] {
        if (!event || !zel::isDomain(domain))
            return EINVAL;
        auto* const made = new zel_event(domain, code);
        if (payload)
            made->setPayload(*payload);
        made->setCompletion(completion);
        *event = made;
        return 0;
    });
}

void zel_event_destroy(zel_event_t* event)
{
    if (event && event->claim())
        zel_event::complete(event);
}

int zel_push_event(zel_event_t* event)
{
    return host::call([&] {
        ThreadState* const thread = ThreadState::current();
        if (!thread)
            return EPERM;
        if (!event)
            return EINVAL;
        std::shared_ptr<Channel> active;
        if (const int error = thread->activeChannel(active))
            return error;
        return push(active->id(), event);
    });
}

int zel_channel_push_event(int channel, zel_event_t* event)
{
    return host::call([&] { return event ? push(channel, event) : EINVAL; });
}

int zel_event_get_domain(const zel_event_t* event)
{
    if (event)
        return event->domain();
    errno = EINVAL;
    return -1;
}

int zel_event_get_code(const zel_event_t* event)
{
    if (event)
        return event->code();
    errno = EINVAL;
    return -1;
}

const zel_event_payload_t* zel_event_get_payload(const zel_event_t* event)
{
    if (event)
        return event->payload();
    errno = EINVAL;
    return nullptr;
}
