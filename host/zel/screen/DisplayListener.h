// SPDX-License-Identifier: Apache-2.0
#ifndef ZEL_SCREEN_DISPLAYLISTENER_H
#define ZEL_SCREEN_DISPLAYLISTENER_H

#include "core/ObjectWatch.h"

#include <DisplayFeed.h>

#include <map>
#include <memory>

namespace zel {

/** Makes the events of a screen context out of what is published of the displays. */
class DisplayListener final : public ObjectListener
{
public:
    explicit DisplayListener(screen_context_t context);

    void begin(ObjectMessage message, EventSink& events) override;
    bool receive(ObjectMessage message, EventSink& events) override;

    /** One reading at a time, so that the displays are, for each event, as it says they are. */
    bool isReady() const override { return m_reading.expired(); }

private:
    /** By the display's id. */
    using States = std::map<int, screen::feed::DisplayState>;

    int read(ObjectMessage message, States& states) const;
    void push(EventSink& events, int id, bool isAttached,
              std::shared_ptr<const void> reading) const;

    const screen_context_t m_context;
    States m_known;
    std::weak_ptr<const void> m_reading; // the last one, which its events keep
};

} // namespace zel

#endif
