/* SPDX-License-Identifier: Apache-2.0 */
/**
 * @file
 * The multimedia renderer: what plays sound and video for an application.
 *
 * What is in an event is asked for by its getters; texts are zero-terminated UTF-8 and valid as
 * long as the event; an event of another domain, or one without that part, gives the value that
 * is said to be "none", with `errno` EINVAL. On a platform without the service every function
 * that can fail fails with ENOTSUP, getters of events included; mmrenderer_get_domain() never
 * fails.
 */
#ifndef ZEL_MMRENDERER_H
#define ZEL_MMRENDERER_H

#include <zel/export.h>
#include <zel/zel.h>

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/** The codes of the renderer's events. */
enum {
    MMRENDERER_STATE_CHANGE = 1,  /**< with state and speed; with error and error position where it
                                       stopped for that */
    MMRENDERER_STATUS_UPDATE = 2, /**< with position, buffer level, buffer status and volume */
    MMRENDERER_WARNING = 3        /**< with warning and warning position */
};

/** What a renderer does. */
typedef enum {
    MMRENDERER_STATE_UNKNOWN = -1, /**< none, or one that this interface does not know */
    MMRENDERER_STATE_DESTROYED = 0,
    MMRENDERER_STATE_IDLE = 1,
    MMRENDERER_STATE_STOPPED = 2,
    MMRENDERER_STATE_PLAYING = 3
} mmrenderer_state_t;

/** What a renderer's buffer does. */
typedef enum {
    MMRENDERER_BUFFER_UNKNOWN = -1,  /**< none, or one that this interface does not know */
    MMRENDERER_BUFFER_IDLE = 0,      /**< it is not used */
    MMRENDERER_BUFFER_BUFFERING = 1, /**< the renderer waits for it to fill */
    MMRENDERER_BUFFER_PLAYING = 2    /**< it holds enough */
} mmrenderer_bufferstatus_t;

/**
 * Asks for the events of a renderer, for the calling thread's active channel. Asking again for
 * the same channel changes nothing. The events stop with the channel, or with
 * mmrenderer_stop_events().
 *
 * @param flags the renderer's number, which its maker was given
 *
 * Errors: as zel_channel_create(); ENOENT (the service is not there).
 */
ZEL_EXPORT int mmrenderer_request_events(int flags);

/** The domain of the renderers; the same in every process and thread. Never fails. */
ZEL_EXPORT int mmrenderer_get_domain(void);

/**
 * Ends what mmrenderer_request_events() began with the same flags for the calling thread's active
 * channel. Events that are in the channel already still come.
 *
 * Errors: as zel_channel_create(); ENOENT (nothing was begun).
 */
ZEL_EXPORT int mmrenderer_stop_events(int flags);

/** What the application attached to the renderer. None: NULL. */
ZEL_EXPORT const char* mmrenderer_event_get_userdata(const zel_event_t* event);

/** What the renderer does. None: MMRENDERER_STATE_UNKNOWN. */
ZEL_EXPORT mmrenderer_state_t mmrenderer_event_get_state(const zel_event_t* event);

/** How fast it plays: 1 is normal, 0 is paused, negative is backwards. None: NaN. */
ZEL_EXPORT double mmrenderer_event_get_speed(const zel_event_t* event);

/** Why it stopped, an `errno` value; 0: no error. None: -1. */
ZEL_EXPORT int mmrenderer_event_get_error(const zel_event_t* event);

/** Where the error was, in milliseconds from the beginning. None: -1. */
ZEL_EXPORT int64_t mmrenderer_event_get_error_position(const zel_event_t* event);

/** What the warning is, for a person to read. None: NULL. */
ZEL_EXPORT const char* mmrenderer_event_get_warning(const zel_event_t* event);

/** Where the warning was, in milliseconds from the beginning. None: -1. */
ZEL_EXPORT int64_t mmrenderer_event_get_warning_position(const zel_event_t* event);

/** Where it plays, in milliseconds from the beginning. None: -1. */
ZEL_EXPORT int64_t mmrenderer_event_get_position(const zel_event_t* event);

/** How full the buffer is: 0 to 100 percent. None: -1. */
ZEL_EXPORT int mmrenderer_event_get_bufferlevel(const zel_event_t* event);

/** What the buffer does. None: MMRENDERER_BUFFER_UNKNOWN. */
ZEL_EXPORT mmrenderer_bufferstatus_t mmrenderer_event_get_bufferstatus(const zel_event_t* event);

/** How loud it plays: 0 to 100 percent. None: -1. */
ZEL_EXPORT int mmrenderer_event_get_volume(const zel_event_t* event);

#ifdef __cplusplus
}
#endif

#endif
