/* SPDX-License-Identifier: Apache-2.0 */
/**
 * @file
 * The screen's events, out of the screen library (<screen/screen.h>) into the event library.
 */
#ifndef ZEL_SCREEN_H
#define ZEL_SCREEN_H

#include <screen/screen.h>
#include <zel/export.h>
#include <zel/zel.h>

#ifdef __cplusplus
extern "C" {
#endif

/** The codes of the screen's events. */
enum {
    SCREEN_EVENT = 1 /**< with the screen library's event */
};

/**
 * Asks for the events of a context, for the calling thread's active channel: for each display that
 * is attached, detached or turned from now on, one. Asking again for the same context and channel
 * changes nothing. They stop with screen_stop_events(), with the context, or with the channel.
 *
 * While an event is handled, the display's properties are as it says, unless the context's displays
 * are counted meanwhile. Changes that come faster than events are handled are told as one, or not
 * at all where the display is as it was.
 *
 * @param context the context's handle, as a number
 *
 * Errors: as zel_channel_create(); EINVAL (no such context); ENOENT (there is no `/pps`); and those
 * of open().
 */
ZEL_EXPORT int screen_request_events(int context);

/** The screen's domain; the same in every process and thread. Never fails. */
ZEL_EXPORT int screen_get_domain(void);

/**
 * Ends what screen_request_events() began for the calling thread's active channel. Events that are
 * in the channel already still come.
 *
 * Errors: as zel_channel_create(); ENOENT (nothing was begun).
 */
ZEL_EXPORT int screen_stop_events(int context);

/**
 * The screen library's event; valid as long as this one. NULL, with EINVAL, for an event of another
 * domain.
 */
ZEL_EXPORT screen_event_t screen_event_get_event(const zel_event_t* event);

#ifdef __cplusplus
}
#endif

#endif
