// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_CORE_ZELEVENTHANDLER_H
#define TAMO_CORE_ZELEVENTHANDLER_H

#include <zel/zel.h>

namespace tamo {

/** Takes the events of one service domain from the dispatch thread. */
class ZelEventHandler
{
public:
    /**
     * Takes one event; called on the dispatch thread, with the registry lock held. So it must not
     * register, unregister, subscribe or unsubscribe anything, and reaches objects of other threads
     * by queued signals or posted events. An exception that leaves it is logged and ends there.
     *
     * @param event the library's; valid during the call
     */
    virtual void dispatchZelEvent(zel_event_t* event) = 0;

protected:
    // Handlers are owned, and deleted, as what they are.
    ~ZelEventHandler() = default;
};

} // namespace tamo

#endif
