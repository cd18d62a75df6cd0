// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_SUBSTITUTENETSTATUS_H
#define TAMO_TESTS_SUBSTITUTENETSTATUS_H

#include "SubstituteProvider.h"

#include <tamomock/ZelNetStatus.h>

#include <atomic>

namespace tamotest {

/**
 * The network status: delivers what it is told to deliver(), and says what isAvailable says. There
 * are no proxies.
 *
 * Every call goes into the journal as "netStatus.<operation>", and fails when the journal says so.
 */
class SubstituteNetStatus : public EventProvider<tamomock::ZelNetStatus>
{
public:
    static constexpr int Domain = 2;

    SubstituteNetStatus(CallJournal& journal, SubstituteCore& core);

    /** What getAvailability() says. */
    std::atomic<bool> isAvailable{false};

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

} // namespace tamotest

#endif
