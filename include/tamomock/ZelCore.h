// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_ZELCORE_H
#define TAMOMOCK_ZELCORE_H

#include <tamo/export.h>

#include <zel/zel.h>

namespace tamomock {

/**
 * The event library itself, as the library calls it: one operation for each function of
 * `<zel/zel.h>`, named after it without `zel_`. What a function takes, returns and does is said
 * there; an operation of a substitute keeps to it as far as the code under test looks.
 *
 * @since 0.1
 */
class TAMO_EXPORT ZelCore
{
public:
    ZelCore() = default;
    ZelCore(const ZelCore&) = delete;
    ZelCore& operator=(const ZelCore&) = delete;
    virtual ~ZelCore();

    virtual int getVersion(int* version) = 0;
    virtual int initialize() = 0;
    virtual int shutdown() = 0;
    virtual int channelCreate(int* channel) = 0;
    virtual int channelSetActive(int channel, int* previous) = 0;
    virtual int channelGetActive() = 0;
    virtual int channelDestroy(int channel) = 0;
    virtual int getEvent(zel_event_t** event, int timeoutMs) = 0;
    virtual int pushEvent(zel_event_t* event) = 0;
    virtual int channelPushEvent(int channel, zel_event_t* event) = 0;
    virtual int setVerbosity(unsigned int verbosity) = 0;
    virtual void free(void* memory) = 0;
    virtual int registerDomain() = 0;
    virtual int registerShutdownHandler(zel_end_handler_t handler, void* data) = 0;
    virtual int registerChannelDestroyHandler(int channel, zel_end_handler_t handler,
                                              void* data) = 0;
    virtual int addFd(int fd, int ioEvents, zel_io_handler_t handler, void* data) = 0;
    virtual int removeFd(int fd) = 0;
    virtual int setDomainData(int domain, void* data, void** previous) = 0;
    virtual int getDomainData(int domain, void** data) = 0;
    virtual int eventGetDomain(const zel_event_t* event) = 0;
    virtual int eventGetCode(const zel_event_t* event) = 0;
    virtual int eventCreate(zel_event_t** event, int domain, int code,
                            const zel_event_payload_t* payload,
                            zel_event_completion_t completion) = 0;
    virtual void eventDestroy(zel_event_t* event) = 0;
    virtual const zel_event_payload_t* eventGetPayload(const zel_event_t* event) = 0;
};

} // namespace tamomock

#endif
