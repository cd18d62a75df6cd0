/* SPDX-License-Identifier: Apache-2.0 */
/**
 * @file
 * The keyboard on the screen.
 *
 * What is in an event is asked for by its getters; texts are zero-terminated UTF-8 and valid as
 * long as the event; an event of another domain, or one without that part, gives the value that
 * is said to be "none", with `errno` EINVAL. Where a call fails nothing is written through its
 * arguments, unless it says otherwise. On a platform without the service every function that
 * can fail fails with ENOTSUP, getters of events included; virtualkeyboard_get_domain() never
 * fails.
 */
#ifndef ZEL_VIRTUALKEYBOARD_H
#define ZEL_VIRTUALKEYBOARD_H

#include <zel/export.h>
#include <zel/zel.h>

#ifdef __cplusplus
extern "C" {
#endif

/** The codes of the keyboard's events. */
enum {
    VIRTUALKEYBOARD_VISIBLE = 1, /**< it was shown */
    VIRTUALKEYBOARD_HIDDEN = 2,  /**< it was hidden */
    VIRTUALKEYBOARD_INFO = 3     /**< with height: it has another one */
};

/** What the keyboard is for. */
typedef enum {
    VIRTUALKEYBOARD_LAYOUT_DEFAULT = 0,
    VIRTUALKEYBOARD_LAYOUT_URL = 1,
    VIRTUALKEYBOARD_LAYOUT_EMAIL = 2,
    VIRTUALKEYBOARD_LAYOUT_PHONE = 3,
    VIRTUALKEYBOARD_LAYOUT_NUMBER = 4,
    VIRTUALKEYBOARD_LAYOUT_PASSWORD = 5
} virtualkeyboard_layout_t;

/** What is written on the enter key. */
typedef enum {
    VIRTUALKEYBOARD_ENTER_DEFAULT = 0,
    VIRTUALKEYBOARD_ENTER_GO = 1,
    VIRTUALKEYBOARD_ENTER_SEARCH = 2,
    VIRTUALKEYBOARD_ENTER_SEND = 3,
    VIRTUALKEYBOARD_ENTER_NEXT = 4,
    VIRTUALKEYBOARD_ENTER_DONE = 5
} virtualkeyboard_enter_t;

/**
 * Asks for the events of the keyboard, for the calling thread's active channel. Asking again for
 * the same channel changes nothing. The events stop with the channel.
 *
 * @param flags 0
 *
 * Errors: as zel_channel_create(); ENOENT (the service is not there).
 */
ZEL_EXPORT int virtualkeyboard_request_events(int flags);

/** The domain of the keyboard; the same in every process and thread. Never fails. */
ZEL_EXPORT int virtualkeyboard_get_domain(void);

/** Shows the keyboard. */
ZEL_EXPORT int virtualkeyboard_show(void);

/** Hides the keyboard. */
ZEL_EXPORT int virtualkeyboard_hide(void);

/** Sets what the keyboard is for. EINVAL for values that are not listed. */
ZEL_EXPORT int virtualkeyboard_change_options(virtualkeyboard_layout_t layout,
                                              virtualkeyboard_enter_t enter);

/** The height of the keyboard when it is shown, in pixels. */
ZEL_EXPORT int virtualkeyboard_get_height(int* height);

/** The height of the keyboard, in pixels. None: -1. */
ZEL_EXPORT int virtualkeyboard_event_get_height(const zel_event_t* event);

#ifdef __cplusplus
}
#endif

#endif
