// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_DEVICE_DISPLAYPROPERTIES_H
#define TAMO_DEVICE_DISPLAYPROPERTIES_H

#include <tamo/device/Display.h>

#include <screen/screen.h>

#include <tuple>

namespace tamomock {
class ScreenApi;
} // namespace tamomock

namespace tamo {
namespace device {

/** What a Display says of itself: one reading of it; at first, what it says of no display. */
struct DisplayProperties
{
    int id = -1;
    QString name;
    int pixelWidth = 0; // at rotation 0
    int pixelHeight = 0;
    float physicalWidth = 0; // millimetres
    float physicalHeight = 0;
    Display::AspectType aspectType = Display::Square;
    Display::DisplayType displayType = Display::DisplayTypeExternal;
    bool isAttached = false;
    bool isDetachable = false;

    /**
     * Reads them, each with a line of the log.
     *
     * @throws tamo::Exception where the screen library fails, after a line that names the property
     */
    static DisplayProperties read(tamomock::ScreenApi& screen, screen_display_t display);

    /** All of it, to be compared. */
    auto all() const
    {
        return std::tie(id, name, pixelWidth, pixelHeight, physicalWidth, physicalHeight,
                        aspectType, displayType, isAttached, isDetachable);
    }

    /** Any order that tells different ones apart. */
    bool operator<(const DisplayProperties& other) const { return all() < other.all(); }
};

} // namespace device
} // namespace tamo

#endif
