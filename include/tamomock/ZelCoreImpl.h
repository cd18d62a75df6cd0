// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_ZELCOREIMPL_H
#define TAMOMOCK_ZELCOREIMPL_H

#include <tamo/export.h>
#include <tamomock/ZelCore.h>

namespace tamomock {

/**
 * The default ZelCore: each operation calls the function that it is named after.
 *
 * @since 0.1
 */
class TAMO_EXPORT ZelCoreImpl : public ZelCore
{
public:
    ~ZelCoreImpl() override;

    int getVersion(int* version) override;
    int initialize() override;
    int shutdown() override;
    int channelCreate(int* channel) override;
    int channelSetActive(int channel, int* previous) override;
    int channelGetActive() override;
    int channelDestroy(int channel) override;
    int getEvent(zel_event_t** event, int timeoutMs) override;
    int pushEvent(zel_event_t* event) override;
    int channelPushEvent(int channel, zel_event_t* event) override;
    int setVerbosity(unsigned int verbosity) override;
    void free(void* memory) override;
    int registerDomain() override;
    int registerShutdownHandler(zel_end_handler_t handler, void* data) override;
    int registerChannelDestroyHandler(int channel, zel_end_handler_t handler, void* data) override;
    int addFd(int fd, int ioEvents, zel_io_handler_t handler, void* data) override;
    int removeFd(int fd) override;
    int setDomainData(int domain, void* data, void** previous) override;
    int getDomainData(int domain, void** data) override;
    int eventGetDomain(const zel_event_t* event) override;
    int eventGetCode(const zel_event_t* event) override;
    int eventCreate(zel_event_t** event, int domain, int code, const zel_event_payload_t* payload,
                    zel_event_completion_t completion) override;
    void eventDestroy(zel_event_t* event) override;
    const zel_event_payload_t* eventGetPayload(const zel_event_t* event) override;
};

} // namespace tamomock

#endif
