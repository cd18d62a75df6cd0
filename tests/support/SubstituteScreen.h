// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_SUBSTITUTESCREEN_H
#define TAMO_TESTS_SUBSTITUTESCREEN_H

#include "SubstituteProvider.h"
#include "SubstituteScreenApi.h"

#include <tamomock/ZelScreen.h>

namespace tamotest {

/**
 * The screen's events, about displays of a substitute screen library.
 *
 * Every call goes into the journal as "screen.<operation>", and fails when the journal says so.
 */
class SubstituteScreen : public EventProvider<tamomock::ZelScreen>
{
public:
    static constexpr int Domain = 3;

    SubstituteScreen(CallJournal& journal, SubstituteCore& core, SubstituteScreenApi& screenApi)
        : EventProvider(journal, core, "screen", Domain), m_screenApi(screenApi)
    {
    }

    /** Has an event of the screen library come to whoever asked. False: nobody has. */
    bool deliverEvent(const SubstituteScreenApi::Event& event)
    {
        EventContent content;
        content.screenEvent = m_screenApi.makeEvent(event);
        return deliver(SCREEN_EVENT, content);
    }

    screen_event_t eventGetEvent(const zel_event_t* event) override
    {
        return m_journal.enter("screen.eventGetEvent")
                   ? SubstituteCore::contentOf(event).screenEvent
                   : nullptr;
    }

private:
    SubstituteScreenApi& m_screenApi;
};

} // namespace tamotest

#endif
