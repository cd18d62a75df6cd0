/* SPDX-License-Identifier: Apache-2.0 */
/**
 * @file
 * The screen library: contexts, and the displays that they show.
 *
 * The displays are those that `/pps/services/screen/displays` describes. Where there is no `/pps`,
 * or nothing has been published there, there is one built-in display: number 1, "Built-in display",
 * 768 x 1280 pixels, 53 x 88 mm, at rotation 0.
 *
 * A context reads the object anew whenever its displays are counted, and for each of its events; a
 * display's properties are those of the last reading in which it was listed, except that one which
 * a later reading does not list is not attached. A display's handle belongs to its context, is
 * the same whenever the same display id is listed, stays valid until the context is destroyed, also
 * when the display has been detached, and is never NULL.
 *
 * Conventions: a function returns 0, or -1 with `errno` set and nothing written. Handles are opaque
 * numbers, not addresses, and are never used again; a context's fits into an `int`. Every function
 * may be called from any thread. EINVAL: a handle that is none (any more), a property that the
 * object does not have or has with another type, a null pointer; ENOMEM.
 */
#ifndef SCREEN_SCREEN_H
#define SCREEN_SCREEN_H

#include <screen/export.h>

#ifdef __cplusplus
extern "C" {
#endif

/** A context: an opaque number above 0 that fits into an `int`; NULL is none. */
typedef struct screen_context* screen_context_t;
/** A display of a context: an opaque number; NULL is none. */
typedef struct screen_display* screen_display_t;
/** A screen event: an opaque number; NULL is none. */
typedef struct screen_event* screen_event_t;

/** For screen_create_context(): an application's context. */
#define SCREEN_APPLICATION_CONTEXT 0

/** Properties. In brackets: of what, and the type of the value. */
enum {
    SCREEN_PROPERTY_DISPLAY = 11,   /**< [event: pv] the display that it is about */
    SCREEN_PROPERTY_ID_STRING = 20, /**< [display: cv] its name, UTF-8 */
    SCREEN_PROPERTY_ROTATION = 38,  /**< [display: iv] 0, 90, 180 or 270 degrees */
    SCREEN_PROPERTY_SIZE = 40,      /**< [display: iv] two: width and height as it is turned now,
                                         in pixels */
    SCREEN_PROPERTY_TYPE = 47,      /**< [display: iv] SCREEN_DISPLAY_TYPE_*; [event: iv]
                                         SCREEN_EVENT_* */
    SCREEN_PROPERTY_DISPLAY_COUNT = 59, /**< [context: iv] how many displays there are */
    SCREEN_PROPERTY_DISPLAYS = 60,   /**< [context: pv] their handles, in the order of the object */
    SCREEN_PROPERTY_ATTACHED = 64,   /**< [display: iv, event: iv] 1: it is there; 0: it is not */
    SCREEN_PROPERTY_DETACHABLE = 65, /**< [display: iv] 1: it can be taken away; 0: it cannot */
    SCREEN_PROPERTY_PHYSICAL_SIZE = 69, /**< [display: iv] two: width and height at rotation 0, in
                                             millimetres; 0 where it is not known */
    SCREEN_PROPERTY_ID = 87             /**< [display: iv, event: iv] the display's number */
};

/** The types of a display. */
enum {
    SCREEN_DISPLAY_TYPE_INTERNAL = 30304, /**< built in */
    SCREEN_DISPLAY_TYPE_EXTERNAL = 30305  /**< any other */
};

/** The types of an event. */
enum {
    SCREEN_EVENT_DISPLAY = 11 /**< a display was attached, detached, or turned */
};

/** The longest display name with its terminating zero, in bytes. */
#define SCREEN_DISPLAY_NAME_SIZE 129

/**
 * Makes a context.
 *
 * @param flags SCREEN_APPLICATION_CONTEXT
 *
 * Errors: EINVAL (other flags); EAGAIN (more contexts than an `int` can count); ENOMEM.
 */
SCREEN_EXPORT int screen_create_context(screen_context_t* context, int flags);

/** Destroys a context and the displays that belong to it; its events end (<zel/screen.h>). */
SCREEN_EXPORT int screen_destroy_context(screen_context_t context);

/**
 * A number of a context: SCREEN_PROPERTY_DISPLAY_COUNT, of the displays as they are now. Where the
 * object cannot be read, its error (EBADMSG where it is malformed).
 */
SCREEN_EXPORT int screen_get_context_property_iv(screen_context_t context, int name, int* values);

/**
 * Handles of a context: SCREEN_PROPERTY_DISPLAYS. As many as the context's last
 * SCREEN_PROPERTY_DISPLAY_COUNT said are written, of the displays as they were then; so the two fit
 * together, whatever happens between. Before the first count there are none to write.
 *
 * @param values room for that many
 */
SCREEN_EXPORT int screen_get_context_property_pv(screen_context_t context, int name, void** values);

/** One or two numbers of a display; see the properties. */
SCREEN_EXPORT int screen_get_display_property_iv(screen_display_t display, int name, int* values);

/**
 * A text of a display: SCREEN_PROPERTY_ID_STRING.
 *
 * @param length the room in `value`, above 0. A longer text is cut after a whole character; a
 * terminating zero follows the text where there is room for it, so a text of exactly `length` bytes
 * has none.
 */
SCREEN_EXPORT int screen_get_display_property_cv(screen_display_t display, int name, int length,
                                                 char* value);

/** A text of an event. There is none yet: EINVAL. */
SCREEN_EXPORT int screen_get_event_property_cv(screen_event_t event, int name, int length,
                                               char* value);

/** A number of an event; see the properties. */
SCREEN_EXPORT int screen_get_event_property_iv(screen_event_t event, int name, int* values);

/** A long number of an event. There is none yet: EINVAL. */
SCREEN_EXPORT int screen_get_event_property_llv(screen_event_t event, int name, long long* values);

/** A handle of an event: SCREEN_PROPERTY_DISPLAY. */
SCREEN_EXPORT int screen_get_event_property_pv(screen_event_t event, int name, void** values);

#ifdef __cplusplus
}
#endif

#endif
