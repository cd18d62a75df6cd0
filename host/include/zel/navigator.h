/* SPDX-License-Identifier: Apache-2.0 */
/**
 * @file
 * The navigator: the phone's window manager and application launcher.
 *
 * Events come through the mailbox `/pps/services/navigator/events`, requests and answers go through
 * `/pps/services/navigator/control`.
 *
 * Conventions beside those of <zel/zel.h>: a request returns 0 as soon as the navigator has it
 * queued; it does not wait for what comes of it. Requests and answers may be sent from any thread,
 * initialised or not. All of them fail with ENOENT where there is no `/pps`, EPIPE where there is
 * one and nobody serves the navigator, EAGAIN where it has too many requests unread, EINVAL for an
 * argument outside its range or a text that is not UTF-8, EFBIG for a request longer than a message
 * can be, and with the other errors of open() and write(). Texts are zero-terminated UTF-8. Texts
 * that come out of an event are valid as long as the event; an event of another domain, or one
 * without that part, gives the value that is said to be "none", with `errno` EINVAL.
 */
#ifndef ZEL_NAVIGATOR_H
#define ZEL_NAVIGATOR_H

#include <zel/export.h>
#include <zel/zel.h>

#include <stdbool.h>

#ifdef __cplusplus
extern "C" {
#endif

/** The codes of the navigator's events. */
enum {
    NAVIGATOR_INVOKE = 1,            /**< with data: the URL that the application is to open */
    NAVIGATOR_EXIT = 2,              /**< the application is to leave, soon */
    NAVIGATOR_WINDOW_STATE = 3,      /**< with window state and group id */
    NAVIGATOR_SWIPE_DOWN = 4,        /**< the user swiped down from the upper edge */
    NAVIGATOR_SWIPE_START = 5,       /**< ... is beginning to; asked for with
                                          navigator_request_swipe_start() */
    NAVIGATOR_LOW_MEMORY = 6,        /**< memory is short */
    NAVIGATOR_ORIENTATION_CHECK = 7, /**< with angle and id: would the application turn? It answers
                                          with navigator_orientation_check_response_id() */
    NAVIGATOR_ORIENTATION = 8,       /**< with angle and id: the application is turned. It answers
                                          with navigator_done_orientation_id() when it has redrawn */
    NAVIGATOR_BACK = 9,              /**< the user wants to go back */
    NAVIGATOR_WINDOW_ACTIVE = 10,    /**< with group id: the window group gets the input */
    NAVIGATOR_WINDOW_INACTIVE = 11,  /**< with group id: ... no longer gets it */
    NAVIGATOR_ORIENTATION_DONE = 12, /**< with angle: turning has ended */
    NAVIGATOR_ORIENTATION_RESULT = 13, /**< with angle and id: what came of
                                           navigator_set_orientation(); with an error text where it
                                           failed */
    NAVIGATOR_WINDOW_LOCK = 14,        /**< the screen was locked */
    NAVIGATOR_WINDOW_UNLOCK = 15       /**< the screen was unlocked */
};

/** The states of an application's window. */
enum {
    NAVIGATOR_WINDOW_FULLSCREEN = 0,
    NAVIGATOR_WINDOW_THUMBNAIL = 1,
    NAVIGATOR_WINDOW_INVISIBLE = 2
};

/** What a badge on the application's icon can look like. */
typedef enum {
    NAVIGATOR_BADGE_SPLAT = 0 /**< a mark that there is something new */
} navigator_badge_t;

/**
 * Asks for the navigator's events, for the calling thread's active channel. The navigator knows the
 * process from then on. Asking again for the same channel changes nothing. The events stop with the
 * channel.
 *
 * @param flags 0
 *
 * Errors: as zel_channel_create(); ENOENT (there is no navigator); EINVAL (flags other than 0); and
 * those of open().
 */
ZEL_EXPORT int navigator_request_events(int flags);

/** The navigator's domain; the same in every process and thread. Never fails. */
ZEL_EXPORT int navigator_get_domain(void);

/**
 * Has a URL opened by the application that is made for it.
 *
 * @param url not empty
 * @param error may be NULL; where the call fails, what went wrong, to be freed with zel_free(), or
 * NULL where there is no more to say than `errno`
 */
ZEL_EXPORT int navigator_invoke(const char* url, char** error);

/**
 * Has a file opened by the application that is made for it. Otherwise as navigator_invoke().
 *
 * @param path not empty; a relative one begins at the process' working directory
 */
ZEL_EXPORT int navigator_open_file(const char* path, char** error);

/**
 * Puts a URL as an icon among the applications.
 *
 * @param icon_path a picture's file; as the path of navigator_open_file()
 * @param category NULL: the navigator's choice
 * @param error as for navigator_invoke()
 */
ZEL_EXPORT int navigator_add_uri(const char* icon_path, const char* icon_label,
                                 const char* category, const char* url, char** error);

/**
 * Asks for more time before an application that was asked to leave is ended.
 *
 * @param milliseconds from now on, 1 to 30000
 * @param error as for navigator_invoke()
 */
ZEL_EXPORT int navigator_extend_timeout(int milliseconds, char** error);

/** Asks for NAVIGATOR_SWIPE_START before each NAVIGATOR_SWIPE_DOWN. */
ZEL_EXPORT int navigator_request_swipe_start(void);

/** Ends what navigator_request_swipe_start() began. */
ZEL_EXPORT int navigator_stop_swipe_start(void);

/** Keeps the application at its present angle, whichever way the device is turned, or no longer. */
ZEL_EXPORT int navigator_rotation_lock(bool locked);

/**
 * Turns the application's window. NAVIGATOR_ORIENTATION follows where the angle changes, and
 * NAVIGATOR_ORIENTATION_RESULT at the end.
 *
 * @param angle 0, 90, 180 or 270 degrees
 * @param id may be NULL; the request's id, which the result carries too, to be freed with
 * zel_free(); set only where the call succeeds
 */
ZEL_EXPORT int navigator_set_orientation(int angle, char** id);

/** Tells the angle at which the application draws: 0, 90, 180 or 270 degrees. */
ZEL_EXPORT int navigator_set_window_angle(int angle);

/** Has the user asked before the application is closed. Neither text may be NULL. */
ZEL_EXPORT int navigator_set_close_prompt(const char* title, const char* message);

/** Ends what navigator_set_close_prompt() began. */
ZEL_EXPORT int navigator_clear_close_prompt(void);

/** Puts a badge on the application's icon. */
ZEL_EXPORT int navigator_set_badge(navigator_badge_t badge);

/** Takes the badge away. */
ZEL_EXPORT int navigator_clear_badge(void);

/**
 * The window state of a NAVIGATOR_WINDOW_STATE: one of NAVIGATOR_WINDOW_*, or a later navigator's
 * other value. None: -1.
 */
ZEL_EXPORT int navigator_event_get_window_state(const zel_event_t* event);

/** The id of the window group: ASCII. None: NULL. */
ZEL_EXPORT const char* navigator_event_get_groupid(const zel_event_t* event);

/** The angle of an orientation event, in degrees. None: -1. */
ZEL_EXPORT int navigator_event_get_orientation_angle(const zel_event_t* event);

/** The data of an NAVIGATOR_INVOKE: UTF-8, usually a URL. None: NULL. */
ZEL_EXPORT const char* navigator_event_get_data(const zel_event_t* event);

/** The id under which an event is answered. None: NULL. */
ZEL_EXPORT const char* navigator_event_get_id(const zel_event_t* event);

/** What went wrong, for a person to read. None: NULL. */
ZEL_EXPORT const char* navigator_event_get_err(const zel_event_t* event);

/** Answers a NAVIGATOR_ORIENTATION_CHECK: whether the application turns. */
ZEL_EXPORT int navigator_orientation_check_response(const zel_event_t* event, bool will_turn);

/** As navigator_orientation_check_response(), by the event's id. */
ZEL_EXPORT int navigator_orientation_check_response_id(const char* id, bool will_turn);

/** Answers a NAVIGATOR_ORIENTATION: the application has redrawn for the angle. */
ZEL_EXPORT int navigator_done_orientation(const zel_event_t* event);

/** As navigator_done_orientation(), by the event's id. */
ZEL_EXPORT int navigator_done_orientation_id(const char* id);

#ifdef __cplusplus
}
#endif

#endif
