// SPDX-License-Identifier: Apache-2.0
#include "DisplayGeometry.h"

#include "core/Log.h"

#include <tamomock/ScreenApi.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <vector>

namespace tamo {

using detail::logLine;

static constexpr int leastRoom = 16;

// Runs a call of the screen library; where it fails, logs which one of them it was.
template<typename Call>
static void attempt(int number, const Call& call)
{
    errno = 0;
    if (call() != 0)
        logLine("NavigatorPrivate::NavigatorPrivate - exlpode", number);
}

DisplayGeometry DisplayGeometry::read()
{
    tamomock::ScreenApi& screen = *tamomock::ScreenApi::instance();
    DisplayGeometry geometry;
    screen_context_t context = nullptr;
    attempt(1, [&] { return screen.createContext(&context, SCREEN_APPLICATION_CONTEXT); });
    int count = 0;
    attempt(2, [&] {
        return screen.getContextPropertyIv(context, SCREEN_PROPERTY_DISPLAY_COUNT, &count);
    });
    // Without displays the first one is none; and where the count failed, some may come all the
    // same.
    std::vector<void*> displays(static_cast<std::size_t>(std::max(count, leastRoom)), nullptr);
    attempt(3, [&] {
        return screen.getContextPropertyPv(context, SCREEN_PROPERTY_DISPLAYS, displays.data());
    });
    const auto display = static_cast<screen_display_t>(displays.front());
    attempt(4, [&] {
        return screen.getDisplayPropertyIv(display, SCREEN_PROPERTY_ROTATION, &geometry.angle);
    });
    std::array<int, 2> size = {0, 0};
    attempt(
        5, [&] { return screen.getDisplayPropertyIv(display, SCREEN_PROPERTY_SIZE, size.data()); });
    attempt(6, [&] { return screen.destroyContext(context); });

    const auto [width, height] = size;
    // The size is that of the display as it is turned now.
    if (geometry.angle == 0 || geometry.angle == 180)
        geometry.isNaturalLandscape = width > height;
    else if (geometry.angle == 90 || geometry.angle == 270)
        geometry.isNaturalLandscape = height > width;
    else
        logLine("NavigatorPrivate::NavigatorPrivate - exlpode7");
    logLine("NavigatorPrivate::NavigatorPrivate - width=", width);
    logLine("NavigatorPrivate::NavigatorPrivate - height=", height);
    logLine("NavigatorPrivate::NavigatorPrivate - angle=", geometry.angle);
    return geometry;
}

} // namespace tamo
