// SPDX-License-Identifier: Apache-2.0
#include "Unsupported.h"

#include "core/Domain.h"

#include <zel/locale.h>

int locale_get_domain()
{
    return zel::number(zel::Domain::Locale);
}

ZEL_UNSUPPORTED(-1, int locale_request_events(int))
ZEL_UNSUPPORTED(-1, int locale_get(char**, char**))
ZEL_UNSUPPORTED(nullptr, const char* locale_event_get_language(const zel_event_t*))
ZEL_UNSUPPORTED(nullptr, const char* locale_event_get_country(const zel_event_t*))
