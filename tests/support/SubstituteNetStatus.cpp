// SPDX-License-Identifier: Apache-2.0
#include "SubstituteNetStatus.h"

namespace tamotest {

SubstituteNetStatus::SubstituteNetStatus(CallJournal& journal, SubstituteCore& core)
    : EventProvider(journal, core, "netStatus", Domain)
{
}

int SubstituteNetStatus::getAvailability(bool* available)
{
    if (!m_journal.enter("netStatus.getAvailability"))
        return -1;
    *available = isAvailable;
    return 0;
}

int SubstituteNetStatus::getProxyDetails(netstatus_proxy_details_t** details)
{
    m_journal.enter("netStatus.getProxyDetails");
    *details = nullptr;
    return -1;
}

void SubstituteNetStatus::freeProxyDetails(netstatus_proxy_details_t** details)
{
    m_journal.enter("netStatus.freeProxyDetails");
    *details = nullptr;
}

bool SubstituteNetStatus::eventGetAvailability(const zel_event_t* event)
{
    return m_journal.enter("netStatus.eventGetAvailability") &&
           SubstituteCore::contentOf(event).isAvailable;
}

bool SubstituteNetStatus::eventGetHttpProxyLoginRequired(const zel_event_t*)
{
    m_journal.enter("netStatus.eventGetHttpProxyLoginRequired");
    return false;
}

const char* SubstituteNetStatus::eventGetHttpProxyHost(const zel_event_t*)
{
    m_journal.enter("netStatus.eventGetHttpProxyHost");
    return "";
}

int SubstituteNetStatus::eventGetHttpProxyPort(const zel_event_t*)
{
    m_journal.enter("netStatus.eventGetHttpProxyPort");
    return 0;
}

const char* SubstituteNetStatus::eventGetHttpsProxyHost(const zel_event_t*)
{
    m_journal.enter("netStatus.eventGetHttpsProxyHost");
    return "";
}

int SubstituteNetStatus::eventGetHttpsProxyPort(const zel_event_t*)
{
    m_journal.enter("netStatus.eventGetHttpsProxyPort");
    return 0;
}

const char* SubstituteNetStatus::eventGetFtpProxyHost(const zel_event_t*)
{
    m_journal.enter("netStatus.eventGetFtpProxyHost");
    return "";
}

int SubstituteNetStatus::eventGetFtpProxyPort(const zel_event_t*)
{
    m_journal.enter("netStatus.eventGetFtpProxyPort");
    return 0;
}

} // namespace tamotest
