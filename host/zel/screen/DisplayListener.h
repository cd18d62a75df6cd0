// SPDX-License-Identifier: Apache-2.0
#ifndef ZEL_SCREEN_DISPLAYLISTENER_H
#define ZEL_SCREEN_DISPLAYLISTENER_H

#include "core/ObjectWatch.h"

#include <DisplayFeed.h>

#include <map>

namespace zel {

/** Makes the events of a screen context out of what is published of the displays. */
class DisplayListener final : public ObjectListener
{
public:
    explicit DisplayListener(screen_context_t context);

    void begin(ObjectMessage message, EventSink& events) override;
    bool receive(ObjectMessage message, EventSink& events) override;

private:
    /** By the display's id. */
    using States = std::map<int, screen::feed::DisplayState>;

    int read(ObjectMessage message, States& states) const;
    void push(EventSink& events, int id, bool isAttached) const;

    const screen_context_t m_context;
    States m_known;
};

} // namespace zel

#endif
