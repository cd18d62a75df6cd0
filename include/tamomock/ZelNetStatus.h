// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_ZELNETSTATUS_H
#define TAMOMOCK_ZELNETSTATUS_H

#include <tamo/export.h>
#include <tamomock/ZelEventProvider.h>

#include <zel/netstatus.h>

namespace tamomock {

/**
 * The network status, as the library calls it: one operation for each function of
 * `<zel/netstatus.h>`, named after it without `netstatus_`, after those of ZelEventProvider. What a
 * function takes, returns and does is said there; an operation of a substitute keeps to it as far
 * as the code under test looks.
 *
 * @since 0.1
 */
class TAMO_EXPORT ZelNetStatus : public ZelEventProvider
{
public:
    ~ZelNetStatus() override;

    virtual int getAvailability(bool* available) = 0;
    virtual int getProxyDetails(netstatus_proxy_details_t** details) = 0;
    virtual void freeProxyDetails(netstatus_proxy_details_t** details) = 0;
    virtual bool eventGetAvailability(const zel_event_t* event) = 0;
    virtual bool eventGetHttpProxyLoginRequired(const zel_event_t* event) = 0;
    virtual const char* eventGetHttpProxyHost(const zel_event_t* event) = 0;
    virtual int eventGetHttpProxyPort(const zel_event_t* event) = 0;
    virtual const char* eventGetHttpsProxyHost(const zel_event_t* event) = 0;
    virtual int eventGetHttpsProxyPort(const zel_event_t* event) = 0;
    virtual const char* eventGetFtpProxyHost(const zel_event_t* event) = 0;
    virtual int eventGetFtpProxyPort(const zel_event_t* event) = 0;
};

} // namespace tamomock

#endif
