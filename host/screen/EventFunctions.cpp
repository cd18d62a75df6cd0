// SPDX-License-Identifier: Apache-2.0
#include <screen/screen.h>

#include "EventTable.h"
#include "common/Call.h"

using namespace screen;

int screen_get_event_property_cv(screen_event_t, int, int, char*)
{
    return host::call([] { return EINVAL; });
}

int screen_get_event_property_iv(screen_event_t event, int name, int* values)
{
    return host::call([&] {
        const std::optional<DisplayEvent> found = EventTable::instance().find(event);
        if (!found || !values)
            return EINVAL;
        switch (name) {
        case SCREEN_PROPERTY_TYPE:
            *values = SCREEN_EVENT_DISPLAY;
            return 0;
        case SCREEN_PROPERTY_ID:
            *values = found->id;
            return 0;
        case SCREEN_PROPERTY_ATTACHED:
            *values = found->isAttached ? 1 : 0;
            return 0;
        default:
            return EINVAL;
        }
    });
}

int screen_get_event_property_llv(screen_event_t, int, long long*)
{
    return host::call([] { return EINVAL; });
}

int screen_get_event_property_pv(screen_event_t event, int name, void** values)
{
    return host::call([&] {
        const std::optional<DisplayEvent> found = EventTable::instance().find(event);
        if (!found || name != SCREEN_PROPERTY_DISPLAY || !values)
            return EINVAL;
        *values = found->display;
        return 0;
    });
}
