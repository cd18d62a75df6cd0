// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ZelNetStatusImpl.h>

namespace tamomock {

ZelNetStatusImpl::~ZelNetStatusImpl() = default;

int ZelNetStatusImpl::requestEvents(int flags)
{
    return netstatus_request_events(flags);
}

int ZelNetStatusImpl::getDomain()
{
    return netstatus_get_domain();
}

int ZelNetStatusImpl::getAvailability(bool* available)
{
    return netstatus_get_availability(available);
}

int ZelNetStatusImpl::getProxyDetails(netstatus_proxy_details_t** details)
{
    return netstatus_get_proxy_details(details);
}

void ZelNetStatusImpl::freeProxyDetails(netstatus_proxy_details_t** details)
{
    netstatus_free_proxy_details(details);
}

bool ZelNetStatusImpl::eventGetAvailability(const zel_event_t* event)
{
    return netstatus_event_get_availability(event);
}

bool ZelNetStatusImpl::eventGetHttpProxyLoginRequired(const zel_event_t* event)
{
    return netstatus_event_get_http_proxy_login_required(event);
}

const char* ZelNetStatusImpl::eventGetHttpProxyHost(const zel_event_t* event)
{
    return netstatus_event_get_http_proxy_host(event);
}

int ZelNetStatusImpl::eventGetHttpProxyPort(const zel_event_t* event)
{
    return netstatus_event_get_http_proxy_port(event);
}

const char* ZelNetStatusImpl::eventGetHttpsProxyHost(const zel_event_t* event)
{
    return netstatus_event_get_https_proxy_host(event);
}

int ZelNetStatusImpl::eventGetHttpsProxyPort(const zel_event_t* event)
{
    return netstatus_event_get_https_proxy_port(event);
}

const char* ZelNetStatusImpl::eventGetFtpProxyHost(const zel_event_t* event)
{
    return netstatus_event_get_ftp_proxy_host(event);
}

int ZelNetStatusImpl::eventGetFtpProxyPort(const zel_event_t* event)
{
    return netstatus_event_get_ftp_proxy_port(event);
}

} // namespace tamomock
