// SPDX-License-Identifier: Apache-2.0
#include "Event.h"

void zel_event::complete(zel_event* event)
{
    if (!event)
        return;
    if (event->m_completion)
        event->m_completion(event);
    delete event;
}
