// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ZelLocaleImpl.h>

namespace tamomock {

ZelLocaleImpl::~ZelLocaleImpl() = default;

int ZelLocaleImpl::requestEvents(int flags)
{
    return locale_request_events(flags);
}

int ZelLocaleImpl::getDomain()
{
    return locale_get_domain();
}

int ZelLocaleImpl::get(char** language, char** country)
{
    return locale_get(language, country);
}

const char* ZelLocaleImpl::eventGetLanguage(const zel_event_t* event)
{
    return locale_event_get_language(event);
}

const char* ZelLocaleImpl::eventGetCountry(const zel_event_t* event)
{
    return locale_event_get_country(event);
}

} // namespace tamomock
