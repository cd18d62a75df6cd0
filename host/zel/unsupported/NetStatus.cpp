// SPDX-License-Identifier: Apache-2.0
#include "Unsupported.h"

#include "core/Domain.h"

#include <zel/netstatus.h>

int netstatus_get_domain()
{
    return zel::number(zel::Domain::NetStatus);
}

int netstatus_get_proxy_details(netstatus_proxy_details_t** details)
{
    return zel::unsupportedRecord(details);
}

void netstatus_free_proxy_details(netstatus_proxy_details_t** details)
{
    zel::freeUnsupportedRecord(details);
}

ZEL_UNSUPPORTED(-1, int netstatus_request_events(int))
ZEL_UNSUPPORTED(-1, int netstatus_get_availability(bool*))
ZEL_UNSUPPORTED(false, bool netstatus_event_get_availability(const zel_event_t*))
ZEL_UNSUPPORTED(false, bool netstatus_event_get_http_proxy_login_required(const zel_event_t*))
ZEL_UNSUPPORTED(nullptr, const char* netstatus_event_get_http_proxy_host(const zel_event_t*))
ZEL_UNSUPPORTED(-1, int netstatus_event_get_http_proxy_port(const zel_event_t*))
ZEL_UNSUPPORTED(nullptr, const char* netstatus_event_get_https_proxy_host(const zel_event_t*))
ZEL_UNSUPPORTED(-1, int netstatus_event_get_https_proxy_port(const zel_event_t*))
ZEL_UNSUPPORTED(nullptr, const char* netstatus_event_get_ftp_proxy_host(const zel_event_t*))
ZEL_UNSUPPORTED(-1, int netstatus_event_get_ftp_proxy_port(const zel_event_t*))
