// SPDX-License-Identifier: Apache-2.0
#ifndef ZEL_SCREEN_SCREENEVENT_H
#define ZEL_SCREEN_SCREENEVENT_H

#include "core/Domain.h"
#include "core/Event.h"

#include <DisplayFeed.h>
#include <zel/screen.h>

#include <memory>
#include <utility>

namespace zel {

/** An event of the screen's domain; owns the screen library's. */
class ScreenEvent final : public zel_event
{
public:
    /** @param reading what it is made of; kept until it has been handled */
    explicit ScreenEvent(std::shared_ptr<const void> reading)
        : zel_event(number(Domain::Screen), SCREEN_EVENT), m_reading(std::move(reading))
    {
    }
    ~ScreenEvent() override { screen::feed::freeEvent(m_event); }

    /** Makes the screen library's event, once. 0 or an `errno` value of makeDisplayEvent(). */
    int make(screen_context_t context, int id, bool isAttached)
    {
        return screen::feed::makeDisplayEvent(context, id, isAttached, m_event);
    }

    screen_event_t event() const { return m_event; }

private:
    const std::shared_ptr<const void> m_reading;
    screen_event_t m_event = nullptr;
};

} // namespace zel

#endif
