// SPDX-License-Identifier: Apache-2.0
#include <screen/screen.h>

#include "ContextTable.h"
#include "Handle.h"
#include "common/Call.h"

using namespace screen;

int screen_create_context(screen_context_t* context, int flags)
{
    return host::call([&] {
        if (!context || flags != SCREEN_APPLICATION_CONTEXT)
            return EINVAL;
        return ContextTable::instance().create(*context);
    });
}

int screen_destroy_context(screen_context_t context)
{
    return host::call([&] { return ContextTable::instance().destroy(context) ? 0 : EINVAL; });
}

int screen_get_context_property_iv(screen_context_t context, int name, int* values)
{
    return host::call([&] {
        const auto found = ContextTable::instance().find(context);
        if (!found || name != SCREEN_PROPERTY_DISPLAY_COUNT || !values)
            return EINVAL;
        std::size_t count = 0;
        if (const int error = found->count(count))
            return error;
        *values = static_cast<int>(count);
        return 0;
    });
}

int screen_get_context_property_pv(screen_context_t context, int name, void** values)
{
    return host::call([&] {
        const auto found = ContextTable::instance().find(context);
        if (!found || name != SCREEN_PROPERTY_DISPLAYS || !values)
            return EINVAL;
        for (const std::size_t place : found->listed())
            *values++ = displayHandle(found->number(), place);
        return 0;
    });
}
