// SPDX-License-Identifier: Apache-2.0
/**
 * What the event library needs of the screen library to make its events: it watches
 * `services/screen/displays` and hands each text on to a context. Not installed. Any thread.
 */
#ifndef SCREEN_FEED_DISPLAYFEED_H
#define SCREEN_FEED_DISPLAYFEED_H

#include <screen/screen.h>

#include <vector>

namespace screen::feed {

/** What events are about. */
struct DisplayState
{
    int id = 0;
    bool isAttached = false;
    int rotation = 0; ///< degrees
};

/** Whether a context of this handle is there. */
SCREEN_EXPORT bool isContext(screen_context_t context);

/**
 * The displays as a context sees them where nothing has been published; events can be made about
 * them from then on.
 *
 * @return as takeReading()
 */
SCREEN_EXPORT int takeUnpublished(screen_context_t context, std::vector<DisplayState>& states);

/**
 * Has a context take a text of the object for its latest reading, so that the properties of its
 * displays are at least as new as the events that are made of it.
 *
 * @param text zero-terminated; is changed
 * @param states the displays, in the object's order
 * @return 0 or an `errno` value, and nothing has changed: EINVAL (no such context), EBADMSG (the
 *         text is malformed), ENOMEM
 */
SCREEN_EXPORT int takeReading(screen_context_t context, char* text,
                              std::vector<DisplayState>& states);

/**
 * Makes an event about a display of a context.
 *
 * @param event to be freed with freeEvent(), also when the context has gone
 * @return 0 or an `errno` value: EINVAL (no such context, or it was never told of a display
 *         with this id), ENOMEM
 */
SCREEN_EXPORT int makeDisplayEvent(screen_context_t context, int id, bool isAttached,
                                   screen_event_t& event);

/** Ends an event; a handle that is none is left alone. */
SCREEN_EXPORT void freeEvent(screen_event_t event);

} // namespace screen::feed

#endif
