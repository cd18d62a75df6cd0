// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_SCREENEVENTS_H
#define TAMO_TESTS_SCREENEVENTS_H

#include "ScreenContext.h"

#include <zel/screen.h>

#include <ostream>

namespace tamotest {

/** What an event of the screen says. */
struct ScreenEventData
{
    screen_display_t display = nullptr;
    int id = -1;
    int attached = -1;

    bool operator==(const ScreenEventData& other) const
    {
        return display == other.display && id == other.id && attached == other.attached;
    }
    friend std::ostream& operator<<(std::ostream& stream, const ScreenEventData& data)
    {
        return stream << "display " << data.id << " (" << data.display << ") attached "
                      << data.attached;
    }
};

/** The calling thread, initialised; its channel gets the screen's events. */
class ScreenEvents
{
public:
    static constexpr int TimeoutMs = 20'000;

    ScreenEvents() { EXPECT_EQ(zel_initialize(), 0); }
    ~ScreenEvents() { EXPECT_EQ(zel_shutdown(), 0); }
    ScreenEvents(const ScreenEvents&) = delete;
    ScreenEvents& operator=(const ScreenEvents&) = delete;

    /** The next event; an empty one, and a failure, where none comes. */
    static ScreenEventData next()
    {
        zel_event_t* event = nullptr;
        EXPECT_EQ(zel_get_event(&event, TimeoutMs), 0);
        if (!event) {
            ADD_FAILURE() << "no event comes";
            return {};
        }
        EXPECT_EQ(zel_event_get_domain(event), screen_get_domain());
        EXPECT_EQ(zel_event_get_code(event), SCREEN_EVENT);
        EXPECT_EQ(zel_event_get_payload(event), nullptr);
        return read(screen_event_get_event(event));
    }

    static ScreenEventData read(screen_event_t event)
    {
        ScreenEventData data;
        int type = -1;
        void* display = nullptr;
        EXPECT_EQ(screen_get_event_property_iv(event, SCREEN_PROPERTY_TYPE, &type), 0);
        EXPECT_EQ(type, SCREEN_EVENT_DISPLAY);
        EXPECT_EQ(screen_get_event_property_iv(event, SCREEN_PROPERTY_ID, &data.id), 0);
        EXPECT_EQ(screen_get_event_property_iv(event, SCREEN_PROPERTY_ATTACHED, &data.attached), 0);
        EXPECT_EQ(screen_get_event_property_pv(event, SCREEN_PROPERTY_DISPLAY, &display), 0);
        data.display = static_cast<screen_display_t>(display);
        return data;
    }

    /** The next event's display and whether it is attached. */
    static std::pair<int, int> nextChange()
    {
        const ScreenEventData data = next();
        return {data.id, data.attached};
    }
};

} // namespace tamotest

#endif
