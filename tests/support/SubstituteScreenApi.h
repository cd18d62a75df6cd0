// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_SUBSTITUTESCREENAPI_H
#define TAMO_TESTS_SUBSTITUTESCREENAPI_H

#include "CallJournal.h"

#include <tamomock/ScreenApi.h>

#include <optional>
#include <set>
#include <vector>

namespace tamotest {

/**
 * A screen library with displays and events that stand as a test has them, sensible or not. What is
 * asked of an unknown context, display, event or property fails with EINVAL.
 *
 * Calls go into the journal as "screenApi.<operation>", with the property's number.
 */
class SubstituteScreenApi : public tamomock::ScreenApi
{
public:
    struct Display
    {
        int rotation = 0; ///< degrees
        int width = 0;    ///< pixels, as it is turned now
        int height = 0;
        int id = 1;
        std::string name = {}; ///< written without a zero at its end where there is no room for it
        int type = SCREEN_DISPLAY_TYPE_INTERNAL;
        int attached = 1;
        int detachable = 0;
        int physicalWidth = 0; ///< millimetres
        int physicalHeight = 0;
    };

    struct Event
    {
        int type = SCREEN_EVENT_DISPLAY;
        std::size_t display = 0; ///< its place
        int attached = 1;
    };

    /** @param journal outlives this */
    explicit SubstituteScreenApi(CallJournal& journal);

    /** Replaces the displays; at first there is one, 768 wide and 1280 high. */
    void setDisplays(std::vector<Display> displays);

    /** Says whether the display at a place is attached. */
    void setAttached(std::size_t place, int attached);

    /** Has the count of displays be this, however many there are; nothing: as many as there are. */
    void setCount(std::optional<int> count);

    /** Makes an event; the handle stays valid. */
    screen_event_t makeEvent(const Event& event);

    /** How many contexts were made and not destroyed. */
    int contextCount() const;

    int createContext(screen_context_t* context, int flags) override;
    int destroyContext(screen_context_t context) override;
    int getContextPropertyIv(screen_context_t context, int name, int* values) override;
    int getContextPropertyPv(screen_context_t context, int name, void** values) override;
    int getDisplayPropertyIv(screen_display_t display, int name, int* values) override;
    int getDisplayPropertyCv(screen_display_t display, int name, int length, char* value) override;
    int getEventPropertyCv(screen_event_t event, int name, int length, char* value) override;
    int getEventPropertyIv(screen_event_t event, int name, int* values) override;
    int getEventPropertyLlv(screen_event_t event, int name, long long* values) override;
    int getEventPropertyPv(screen_event_t event, int name, void** values) override;

private:
    // Handles are numbers: a context's from 1, a display's from 1001, an event's from 1.
    static constexpr std::uintptr_t FirstDisplay = 1001;

    bool isContext(screen_context_t context) const;
    const Display* find(screen_display_t display) const;
    const Event* find(screen_event_t event) const;
    static int refuse(int error);

    CallJournal& m_journal;
    mutable std::mutex m_mutex; // guards what follows
    std::vector<Display> m_displays = {{0, 768, 1280}};
    std::optional<int> m_count;
    std::set<std::uintptr_t> m_contexts;
    std::uintptr_t m_lastContext = 0;
    std::vector<Event> m_events;
};

} // namespace tamotest

#endif
