// SPDX-License-Identifier: Apache-2.0
#include "ThreadState.h"
#include "common/Call.h"

#include <zel/zel.h>

using zel::Channel;
using zel::ThreadState;

int zel_channel_create(int* channel)
{
    return host::call([&] {
        ThreadState* const thread = ThreadState::current();
        if (!thread)
            return EPERM;
        if (!channel)
            return EINVAL;
        std::shared_ptr<Channel> made;
        if (const int error = thread->createChannel(made))
            return error;
        *channel = made->id();
        return 0;
    });
}

int zel_channel_set_active(int channel, int* previous)
{
    return host::call([&] {
        ThreadState* const thread = ThreadState::current();
        if (!thread)
            return EPERM;
        std::shared_ptr<Channel> found = thread->channel(channel);
        if (!found)
            return EINVAL;
        if (previous)
            *previous = thread->activeId();
        thread->setActive(std::move(found));
        return 0;
    });
}

int zel_channel_get_active(void)
{
    int id = -1;
    host::call([&] {
        ThreadState* const thread = ThreadState::current();
        if (!thread)
            return EPERM;
        std::shared_ptr<Channel> active;
        if (const int error = thread->activeChannel(active))
            return error;
        id = active->id();
        return 0;
    });
    return id;
}

int zel_channel_destroy(int channel)
{
    return host::call([&] {
        ThreadState* const thread = ThreadState::current();
        return thread ? thread->destroyChannel(channel) : EPERM;
    });
}

int zel_register_channel_destroy_handler(int channel, zel_end_handler_t handler, void* data)
{
    return host::call([&] {
        ThreadState* const thread = ThreadState::current();
        if (!thread)
            return EPERM;
        const std::shared_ptr<Channel> found = thread->channel(channel);
        if (!handler || !found || found->isEnding())
            return EINVAL;
        found->destroyHandlers().add(handler, data);
        return 0;
    });
}
