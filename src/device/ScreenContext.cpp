// SPDX-License-Identifier: Apache-2.0
#include "ScreenContext.h"

#include "core/Log.h"

#include <tamo/Exception.h>
#include <tamomock/ScreenApi.h>

#include <cerrno>
#include <cstdint>

namespace tamo {
namespace device {

using detail::logLine;

namespace {

constexpr int mostDisplays = 1 << 16; // as nobody has; a count above it is a fault

constexpr int spareRoom = 16; // for displays that come while they are asked for

void check(bool isRight, const char* what)
{
    if (isRight)
        return;
    logLine("DisplayManagerPrivate::DisplayManagerPrivate(): ", what, " failed");
    throw Exception();
}

} // namespace

ScreenContext::ScreenContext(tamomock::ScreenApi& screen) : m_screen(screen)
{
    errno = 0;
    check(m_screen.createContext(&m_context, SCREEN_APPLICATION_CONTEXT) == 0,
          "screen_create_context()");
}

ScreenContext::~ScreenContext()
{
    m_screen.destroyContext(m_context);
}

int ScreenContext::flags() const
{
    return static_cast<int>(reinterpret_cast<std::intptr_t>(m_context));
}

int ScreenContext::displayCount() const
{
    int count = 0;
    errno = 0;
    const int result =
        m_screen.getContextPropertyIv(m_context, SCREEN_PROPERTY_DISPLAY_COUNT, &count);
    check(result == 0 && count >= 0 && count <= mostDisplays,
          "screen_get_context_property_iv(SCREEN_PROPERTY_DISPLAY_COUNT)");
    logLine(count, " display(s)");
    return count;
}

std::vector<screen_display_t> ScreenContext::displays() const
{
    const auto count = static_cast<std::size_t>(displayCount());
    char unwritten = 0; // at an address that is no display's handle
    std::vector<void*> handles(count + spareRoom, &unwritten);
    errno = 0;
    // The log names another function than the one that is called.
    check(m_screen.getContextPropertyPv(m_context, SCREEN_PROPERTY_DISPLAYS, handles.data()) == 0,
          "screen_get_context_property_iv(SCREEN_PROPERTY_DISPLAYS)");
    handles.resize(count);
    std::vector<screen_display_t> displays;
    for (void* const handle : handles)
        if (handle != &unwritten)
            displays.push_back(static_cast<screen_display_t>(handle));
    return displays;
}

} // namespace device
} // namespace tamo
