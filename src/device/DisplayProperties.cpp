// SPDX-License-Identifier: Apache-2.0
#include "DisplayProperties.h"

#include "core/Log.h"

#include <tamo/Exception.h>
#include <tamomock/ScreenApi.h>

#include <array>
#include <cerrno>
#include <utility>

namespace tamo {
namespace device {

using detail::logLine;

namespace {

/** Reads properties of one display, by their number and the name that the log has for them. */
class PropertyReader
{
public:
    PropertyReader(tamomock::ScreenApi& screen, screen_display_t display)
        : m_screen(screen), m_display(display)
    {
    }

    int number(int property, const char* name, int initial = 0) const
    {
        int value = initial;
        errno = 0;
        check(m_screen.getDisplayPropertyIv(m_display, property, &value), name);
        return value;
    }

    std::pair<int, int> extent(int property, const char* name) const
    {
        std::array<int, 2> values = {0, 0};
        errno = 0;
        check(m_screen.getDisplayPropertyIv(m_display, property, values.data()), name);
        return {values[0], values[1]};
    }

    QString text(int property, const char* name) const
    {
        // A text that fills the room comes without a zero at its end.
        std::array<char, Display::displayNameSize> value = {};
        constexpr int room = Display::displayNameSize - 1;
        errno = 0;
        check(m_screen.getDisplayPropertyCv(m_display, property, room, value.data()), name);
        value.back() = '\0';
        return QString::fromUtf8(value.data());
    }

private:
    static void check(int result, const char* name)
    {
        if (result == 0)
            return;
        logLine("DisplayPrivate::createDisplay(): screen_get_display_property(", name, ") failed");
        throw Exception();
    }

    tamomock::ScreenApi& m_screen;
    const screen_display_t m_display;
};

Display::AspectType aspectOf(int width, int height)
{
    if (height < width)
        return Display::Landscape;
    return width < height ? Display::Portrait : Display::Square;
}

} // namespace

DisplayProperties DisplayProperties::read(tamomock::ScreenApi& screen, screen_display_t display)
{
    const PropertyReader reader(screen, display);
    DisplayProperties properties;
    properties.id = reader.number(SCREEN_PROPERTY_ID, "SCREEN_PROPERTY_ID", -1);
    logLine("display Id: ", properties.id);

    properties.name = reader.text(SCREEN_PROPERTY_ID_STRING, "SCREEN_PROPERTY_ID_STRING");
    logLine("display name: ", properties.name);

    const int type = reader.number(SCREEN_PROPERTY_TYPE, "SCREEN_PROPERTY_TYPE", -1);
    properties.displayType = type == SCREEN_DISPLAY_TYPE_INTERNAL ? Display::DisplayTypeInternal
                                                                  : Display::DisplayTypeExternal;
    logLine("display type: ", type);

    const int attached = reader.number(SCREEN_PROPERTY_ATTACHED, "SCREEN_PROPERTY_ATTACHED");
    properties.isAttached = attached != 0;
    logLine("attached: ", attached);

    // The blank is the log's.
    const int detachable = reader.number(SCREEN_PROPERTY_DETACHABLE, "SCREEN_PROPERTY_DETACHABLE ");
    properties.isDetachable = detachable != 0;
    logLine("detachable: ", detachable);

    const auto [physicalWidth, physicalHeight] =
        reader.extent(SCREEN_PROPERTY_PHYSICAL_SIZE, "SCREEN_PROPERTY_PHYSICAL_SIZE");
    properties.physicalWidth = static_cast<float>(physicalWidth);
    properties.physicalHeight = static_cast<float>(physicalHeight);
    logLine("physical size: ", physicalWidth, ", ", physicalHeight);

    const int rotation = reader.number(SCREEN_PROPERTY_ROTATION, "SCREEN_PROPERTY_ROTATION");
    logLine("rotation: ", rotation);

    std::tie(properties.pixelWidth, properties.pixelHeight) =
        reader.extent(SCREEN_PROPERTY_SIZE, "SCREEN_PROPERTY_SIZE");
    if (rotation == 90 || rotation == 270)
        std::swap(properties.pixelWidth, properties.pixelHeight);
    logLine("pixel size: ", properties.pixelWidth, ", ", properties.pixelHeight);
    properties.aspectType = aspectOf(properties.pixelWidth, properties.pixelHeight);
    return properties;
}

} // namespace device
} // namespace tamo
