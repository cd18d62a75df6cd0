// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_DEVICE_DISPLAYPRIVATE_H
#define TAMO_DEVICE_DISPLAYPRIVATE_H

#include "DisplayProperties.h"

#include <atomic>
#include <set>

namespace tamo {
namespace device {

/**
 * A Display's readings. The latest one is published by its address, so that other threads read it
 * at no cost while the dispatch thread takes the next. No reading is ever changed or freed while
 * the Display is there: nobody knows who still looks at it. One that is equal to an earlier one is
 * not kept twice, so a display takes memory for each different state that it has been in, however
 * often it changes.
 *
 * createDisplay() and setAttached() are called by one thread at a time.
 */
class DisplayPrivate
{
public:
    explicit DisplayPrivate(Display* display);

    /** Reads the display of a handle for the first time. Throws as DisplayProperties::read(). */
    void createDisplay(tamomock::ScreenApi& screen, screen_display_t handle);

    /**
     * Where the display is not yet as told, reads it anew, and emits Display::attachedChanged()
     * with what was told, whatever the reading says. After createDisplay() only.
     *
     * @throws tamo::Exception as DisplayProperties::read(), and nothing has changed
     */
    void setAttached(bool isAttached);

    /** The latest reading; valid as long as this. Any thread. */
    const DisplayProperties& properties() const
    {
        return *m_latest.load(std::memory_order_acquire);
    }

private:
    void read();

    Display* const q;
    tamomock::ScreenApi* m_screen = nullptr;
    screen_display_t m_handle = nullptr; // null where an application has made the Display
    std::set<DisplayProperties> m_readings{DisplayProperties()};
    std::atomic<const DisplayProperties*> m_latest{&*m_readings.begin()};
};

} // namespace device
} // namespace tamo

#endif
