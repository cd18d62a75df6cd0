// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ZelCoreImpl.h>

namespace tamomock {

ZelCoreImpl::~ZelCoreImpl() = default;

int ZelCoreImpl::getVersion(int* version)
{
    return zel_get_version(version);
}

int ZelCoreImpl::initialize()
{
    return zel_initialize();
}

int ZelCoreImpl::shutdown()
{
    return zel_shutdown();
}

int ZelCoreImpl::channelCreate(int* channel)
{
    return zel_channel_create(channel);
}

int ZelCoreImpl::channelSetActive(int channel, int* previous)
{
    return zel_channel_set_active(channel, previous);
}

int ZelCoreImpl::channelGetActive()
{
    return zel_channel_get_active();
}

int ZelCoreImpl::channelDestroy(int channel)
{
    return zel_channel_destroy(channel);
}

int ZelCoreImpl::getEvent(zel_event_t** event, int timeoutMs)
{
    return zel_get_event(event, timeoutMs);
}

int ZelCoreImpl::pushEvent(zel_event_t* event)
{
    return zel_push_event(event);
}

int ZelCoreImpl::channelPushEvent(int channel, zel_event_t* event)
{
    return zel_channel_push_event(channel, event);
}

int ZelCoreImpl::setVerbosity(unsigned int verbosity)
{
    return zel_set_verbosity(verbosity);
}

void ZelCoreImpl::free(void* memory)
{
    zel_free(memory);
}

int ZelCoreImpl::registerDomain()
{
    return zel_register_domain();
}

int ZelCoreImpl::registerShutdownHandler(zel_end_handler_t handler, void* data)
{
    return zel_register_shutdown_handler(handler, data);
}

int ZelCoreImpl::registerChannelDestroyHandler(int channel, zel_end_handler_t handler, void* data)
{
    return zel_register_channel_destroy_handler(channel, handler, data);
}

int ZelCoreImpl::addFd(int fd, int ioEvents, zel_io_handler_t handler, void* data)
{
    return zel_add_fd(fd, ioEvents, handler, data);
}

int ZelCoreImpl::removeFd(int fd)
{
    return zel_remove_fd(fd);
}

int ZelCoreImpl::setDomainData(int domain, void* data, void** previous)
{
    return zel_set_domain_data(domain, data, previous);
}

int ZelCoreImpl::getDomainData(int domain, void** data)
{
    return zel_get_domain_data(domain, data);
}

int ZelCoreImpl::eventGetDomain(const zel_event_t* event)
{
    return zel_event_get_domain(event);
}

int ZelCoreImpl::eventGetCode(const zel_event_t* event)
{
    return zel_event_get_code(event);
}

int ZelCoreImpl::eventCreate(zel_event_t** event, int domain, int code,
                             const zel_event_payload_t* payload, zel_event_completion_t completion)
{
    return zel_event_create(event, domain, code, payload, completion);
}

void ZelCoreImpl::eventDestroy(zel_event_t* event)
{
    zel_event_destroy(event);
}

const zel_event_payload_t* ZelCoreImpl::eventGetPayload(const zel_event_t* event)
{
    return zel_event_get_payload(event);
}

} // namespace tamomock
