// SPDX-License-Identifier: Apache-2.0
#include "ThreadState.h"
#include "common/Call.h"

#include <zel/zel.h>

#include <memory>

using zel::Channel;
using zel::DescriptorSet;
using zel::ThreadState;

namespace {

/** A descriptor that the application watches. */
class ApplicationWatch final : public zel::DescriptorWatch
{
public:
    ApplicationWatch(int fd, zel_io_handler_t handler, void* data)
        : m_fd(fd), m_handler(handler), m_data(data)
    {
    }

    bool ready(int ioEvents) override { return m_handler(m_fd, ioEvents, m_data) == 0; }

private:
    const int m_fd;
    const zel_io_handler_t m_handler;
    void* const m_data;
};

constexpr int AllEvents = ZEL_IO_INPUT | ZEL_IO_OUTPUT | ZEL_IO_EXCEPT;

} // namespace

int zel_add_fd(int fd, int io_events, zel_io_handler_t handler, void* data)
{
    return host::call([&] {
        ThreadState* const thread = ThreadState::current();
        if (!thread)
            return EPERM;
        if (!handler || (io_events & (ZEL_IO_INPUT | ZEL_IO_OUTPUT)) == 0 ||
            (io_events & ~AllEvents) != 0)
            return EINVAL;
        if (fd < 0)
            return EBADF;
        std::shared_ptr<Channel> active;
        if (const int error = thread->activeChannel(active))
            return error;
        return active->watch(fd, io_events, DescriptorSet::Owner::Application,
                             std::make_shared<ApplicationWatch>(fd, handler, data));
    });
}

int zel_remove_fd(int fd)
{
    return host::call([&] {
        ThreadState* const thread = ThreadState::current();
        if (!thread)
            return EPERM;
        if (thread->activeId() == 0)
            return ENOENT;
        std::shared_ptr<Channel> active;
        thread->activeChannel(active);
        return active->unwatch(fd, DescriptorSet::Owner::Application);
    });
}
