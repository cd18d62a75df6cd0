// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_SCREENCONTEXT_H
#define TAMO_TESTS_SCREENCONTEXT_H

#include "PrivatePps.h"

#include <screen/screen.h>

#include <gmock/gmock.h>

#include <cerrno>
#include <string>
#include <vector>

namespace tamotest {

/** Publishes the displays, given as the elements of a JSON array. */
inline void publishDisplays(const std::string& elements)
{
    publish("services/screen/displays", "@displays\ndisplays:json:[" + elements + "]\n");
}

/** A display of 100 x 200 pixels as JSON; `more` begins with a comma, or is empty. */
inline std::string display(int id, const std::string& more = "")
{
    return "{\"id\":" + std::to_string(id) + ",\"width\":100,\"height\":200" + more + "}";
}

/** A context that lives as long as this object. */
class ScreenContext
{
public:
    ScreenContext() { EXPECT_EQ(screen_create_context(&m_context, 0), 0); }
    ~ScreenContext() { screen_destroy_context(m_context); }
    ScreenContext(const ScreenContext&) = delete;
    ScreenContext& operator=(const ScreenContext&) = delete;

    screen_context_t get() const { return m_context; }
    int number() const { return static_cast<int>(reinterpret_cast<std::uintptr_t>(m_context)); }

    /** How many displays there are; -1 where that fails. */
    int count() const
    {
        int count = -1;
        screen_get_context_property_iv(m_context, SCREEN_PROPERTY_DISPLAY_COUNT, &count);
        return count;
    }

    /** The handles of the last count. */
    std::vector<screen_display_t> listed(int count) const
    {
        std::vector<void*> handles(static_cast<std::size_t>(count));
        EXPECT_EQ(
            screen_get_context_property_pv(m_context, SCREEN_PROPERTY_DISPLAYS, handles.data()), 0);
        std::vector<screen_display_t> displays;
        for (void* const handle : handles)
            displays.push_back(static_cast<screen_display_t>(handle));
        return displays;
    }

    /** Counts, and takes the handles. */
    std::vector<screen_display_t> displays() const { return listed(count()); }

private:
    screen_context_t m_context = nullptr;
};

/** A number of a display; -1 where it cannot be had. */
inline int numberOf(screen_display_t display, int property)
{
    int value = -1;
    screen_get_display_property_iv(display, property, &value);
    return value;
}

/** Two numbers of a display. */
inline std::pair<int, int> pairOf(screen_display_t display, int property)
{
    int values[2] = {-1, -1};
    screen_get_display_property_iv(display, property, values);
    return {values[0], values[1]};
}

/** The name of a display. */
inline std::string nameOf(screen_display_t display)
{
    char name[SCREEN_DISPLAY_NAME_SIZE] = "?";
    screen_get_display_property_cv(display, SCREEN_PROPERTY_ID_STRING, sizeof name, name);
    return name;
}

/** The ids of displays. */
inline std::vector<int> idsOf(const std::vector<screen_display_t>& displays)
{
    std::vector<int> ids;
    for (const screen_display_t display : displays)
        ids.push_back(numberOf(display, SCREEN_PROPERTY_ID));
    return ids;
}

/** That a call failed with an `errno` value, which is looked at right after it. */
#define EXPECT_FAILS(call, error)                                                                  \
    do {                                                                                           \
        errno = 0;                                                                                 \
        EXPECT_EQ(call, -1);                                                                       \
        EXPECT_EQ(errno, error);                                                                   \
    } while (false)

} // namespace tamotest

#endif
