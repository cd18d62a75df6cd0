// SPDX-License-Identifier: Apache-2.0
// Any bytes as what is published of the displays, one publication after the other: displays that
// can be looked at and are as the screen library's header says, or a reason why not.
#include "Require.h"

#include <DisplayFeed.h>

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <map>
#include <string>
#include <vector>

using namespace screen;

namespace {

class Event
{
public:
    Event(screen_context_t context, const feed::DisplayState& state)
    {
        require(feed::makeDisplayEvent(context, state.id, state.isAttached, m_event) == 0,
                "no event about a display that was read");
    }
    ~Event() { feed::freeEvent(m_event); }
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;

    screen_display_t display() const
    {
        void* display = nullptr;
        require(screen_get_event_property_pv(m_event, SCREEN_PROPERTY_DISPLAY, &display) == 0 &&
                    display,
                "an event without a display");
        return static_cast<screen_display_t>(display);
    }

private:
    screen_event_t m_event = nullptr;
};

int number(screen_display_t display, int property)
{
    int value = -1;
    require(screen_get_display_property_iv(display, property, &value) == 0, "a number is missing");
    return value;
}

void checkExtent(screen_display_t display, int property, int least)
{
    int values[2] = {-1, -1};
    require(screen_get_display_property_iv(display, property, values) == 0, "a size is missing");
    require(values[0] >= least && values[1] >= least, "a size is out of range");
}

void checkName(screen_display_t display)
{
    for (const int room : {1, 2, SCREEN_DISPLAY_NAME_SIZE - 1, SCREEN_DISPLAY_NAME_SIZE}) {
        std::vector<char> name(static_cast<std::size_t>(room), '\1'); // exactly as long
        require(screen_get_display_property_cv(display, SCREEN_PROPERTY_ID_STRING, room,
                                               name.data()) == 0,
                "a name is missing");
        require(room < SCREEN_DISPLAY_NAME_SIZE || std::memchr(name.data(), '\0', name.size()),
                "a name is longer than any may be");
    }
}

void check(screen_display_t display, const feed::DisplayState& state)
{
    require(number(display, SCREEN_PROPERTY_ID) == state.id && state.id > 0, "another id");
    require(number(display, SCREEN_PROPERTY_ATTACHED) == (state.isAttached ? 1 : 0),
            "attached or not, the event says another thing than the display");
    require(number(display, SCREEN_PROPERTY_ROTATION) == state.rotation, "another rotation");
    require(state.rotation % 90 == 0 && state.rotation >= 0 && state.rotation < 360, "no rotation");
    const int type = number(display, SCREEN_PROPERTY_TYPE);
    require(type == SCREEN_DISPLAY_TYPE_INTERNAL || type == SCREEN_DISPLAY_TYPE_EXTERNAL,
            "no type");
    const int detachable = number(display, SCREEN_PROPERTY_DETACHABLE);
    require(detachable == 0 || detachable == 1, "neither detachable nor not");
    checkExtent(display, SCREEN_PROPERTY_SIZE, 1);
    checkExtent(display, SCREEN_PROPERTY_PHYSICAL_SIZE, 0);
    checkName(display);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    screen_context_t context = nullptr;
    require(screen_create_context(&context, SCREEN_APPLICATION_CONTEXT) == 0, "no context");
    std::map<int, screen_display_t> handles; // of every display that there ever was
    const std::uint8_t* const end = data + size;
    while (data < end) {
        const auto* const next = static_cast<const std::uint8_t*>(
            std::memchr(data, '\0', static_cast<std::size_t>(end - data)));
        std::vector<char> text(data, next ? next : end); // exactly as long
        text.push_back('\0');
        data = next ? next + 1 : end;
        std::vector<feed::DisplayState> states;
        const int error = feed::takeReading(context, text.data(), states);
        require(error == 0 || (error == EBADMSG && states.empty()), "neither read nor malformed");
        std::map<int, screen_display_t> gone = handles;
        for (const feed::DisplayState& state : states) {
            const screen_display_t display = Event(context, state).display();
            check(display, state);
            require(handles.emplace(state.id, display).first->second == display,
                    "another handle for the same display");
            gone.erase(state.id);
        }
        for (const auto& [id, display] : gone)
            require(error != 0 || number(display, SCREEN_PROPERTY_ATTACHED) == 0,
                    "a display is attached that is not listed");
    }
    require(screen_destroy_context(context) == 0, "the context has gone");
    for (const auto& [id, display] : handles) {
        int value = 0;
        require(screen_get_display_property_iv(display, SCREEN_PROPERTY_ID, &value) == -1,
                "a display outlives its context");
    }
    return 0;
}
