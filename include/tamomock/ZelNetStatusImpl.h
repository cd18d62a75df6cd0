// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_ZELNETSTATUSIMPL_H
#define TAMOMOCK_ZELNETSTATUSIMPL_H

#include <tamo/export.h>
#include <tamomock/ZelNetStatus.h>

namespace tamomock {

/**
 * The default ZelNetStatus: each operation calls the function that it is named after.
 *
 * @since 0.1
 */
class TAMO_EXPORT ZelNetStatusImpl : public ZelNetStatus
{
public:
    ~ZelNetStatusImpl() override;

    int requestEvents(int flags) override;
    int getDomain() override;
    int getAvailability(bool* available) override;
    int getProxyDetails(netstatus_proxy_details_t** details) override;
    void freeProxyDetails(netstatus_proxy_details_t** details) override;
    bool eventGetAvailability(const zel_event_t* event) override;
    bool eventGetHttpProxyLoginRequired(const zel_event_t* event) override;
    const char* eventGetHttpProxyHost(const zel_event_t* event) override;
    int eventGetHttpProxyPort(const zel_event_t* event) override;
    const char* eventGetHttpsProxyHost(const zel_event_t* event) override;
    int eventGetHttpsProxyPort(const zel_event_t* event) override;
    const char* eventGetFtpProxyHost(const zel_event_t* event) override;
    int eventGetFtpProxyPort(const zel_event_t* event) override;
};

} // namespace tamomock

#endif
