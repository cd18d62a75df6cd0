// SPDX-License-Identifier: Apache-2.0
#include <screen/screen.h>

#include "ContextTable.h"
#include "DisplayName.h"
#include "Handle.h"
#include "common/Call.h"

#include <algorithm>
#include <utility>

using namespace screen;

namespace {

std::optional<Display> find(screen_display_t handle)
{
    const auto context = ContextTable::instance().find(contextOf(handle));
    return context ? context->display(displayIndex(handle)) : std::nullopt;
}

std::pair<int, int> turnedSize(const Display& display)
{
    const bool isOnItsSide = display.rotation == 90 || display.rotation == 270;
    return isOnItsSide ? std::pair(display.height, display.width)
                       : std::pair(display.width, display.height);
}

int put(int* values, int value)
{
    *values = value;
    return 0;
}

int put(int* values, std::pair<int, int> pair)
{
    values[0] = pair.first;
    values[1] = pair.second;
    return 0;
}

} // namespace

int screen_get_display_property_iv(screen_display_t display, int name, int* values)
{
    return host::call([&] {
        const std::optional<Display> found = find(display);
        if (!found || !values)
            return EINVAL;
        switch (name) {
        case SCREEN_PROPERTY_ID:
            return put(values, found->id);
        case SCREEN_PROPERTY_TYPE:
            return put(values, found->isInternal ? SCREEN_DISPLAY_TYPE_INTERNAL
                                                 : SCREEN_DISPLAY_TYPE_EXTERNAL);
        case SCREEN_PROPERTY_ATTACHED:
            return put(values, found->isAttached ? 1 : 0);
        case SCREEN_PROPERTY_DETACHABLE:
            return put(values, found->isDetachable ? 1 : 0);
        case SCREEN_PROPERTY_ROTATION:
            return put(values, found->rotation);
        case SCREEN_PROPERTY_SIZE:
            return put(values, turnedSize(*found));
        case SCREEN_PROPERTY_PHYSICAL_SIZE:
            return put(values, {found->physicalWidth, found->physicalHeight});
        default:
            return EINVAL;
        }
    });
}

int screen_get_display_property_cv(screen_display_t display, int name, int length, char* value)
{
    return host::call([&] {
        const std::optional<Display> found = find(display);
        if (!found || name != SCREEN_PROPERTY_ID_STRING || length <= 0 || !value)
            return EINVAL;
        const auto room = static_cast<std::size_t>(length);
        const std::string_view text = cutToFit(found->name, room);
        std::copy(text.begin(), text.end(), value);
        if (text.size() < room)
            value[text.size()] = '\0';
        return 0;
    });
}
