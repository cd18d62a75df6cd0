// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ScreenApiImpl.h>

namespace tamomock {

ScreenApiImpl::~ScreenApiImpl() = default;

int ScreenApiImpl::createContext(screen_context_t* context, int flags)
{
    return screen_create_context(context, flags);
}

int ScreenApiImpl::destroyContext(screen_context_t context)
{
    return screen_destroy_context(context);
}

int ScreenApiImpl::getContextPropertyIv(screen_context_t context, int name, int* values)
{
    return screen_get_context_property_iv(context, name, values);
}

int ScreenApiImpl::getContextPropertyPv(screen_context_t context, int name, void** values)
{
    return screen_get_context_property_pv(context, name, values);
}

int ScreenApiImpl::getDisplayPropertyIv(screen_display_t display, int name, int* values)
{
    return screen_get_display_property_iv(display, name, values);
}

int ScreenApiImpl::getDisplayPropertyCv(screen_display_t display, int name, int length, char* value)
{
    return screen_get_display_property_cv(display, name, length, value);
}

int ScreenApiImpl::getEventPropertyCv(screen_event_t event, int name, int length, char* value)
{
    return screen_get_event_property_cv(event, name, length, value);
}

int ScreenApiImpl::getEventPropertyIv(screen_event_t event, int name, int* values)
{
    return screen_get_event_property_iv(event, name, values);
}

int ScreenApiImpl::getEventPropertyLlv(screen_event_t event, int name, long long* values)
{
    return screen_get_event_property_llv(event, name, values);
}

int ScreenApiImpl::getEventPropertyPv(screen_event_t event, int name, void** values)
{
    return screen_get_event_property_pv(event, name, values);
}

} // namespace tamomock
