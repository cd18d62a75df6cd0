/* SPDX-License-Identifier: Apache-2.0 */
/**
 * @file
 * The orientation: how the device is held.
 *
 * What is in an event is asked for by its getters; texts are zero-terminated UTF-8 and valid as
 * long as the event; an event of another domain, or one without that part, gives the value that
 * is said to be "none", with `errno` EINVAL. Where a call fails nothing is written through its
 * arguments, unless it says otherwise. On a platform without the service every function that
 * can fail fails with ENOTSUP, getters of events included; orientation_get_domain() never
 * fails.
 */
#ifndef ZEL_ORIENTATION_H
#define ZEL_ORIENTATION_H

#include <zel/export.h>
#include <zel/zel.h>

#ifdef __cplusplus
extern "C" {
#endif

/** The codes of the orientation's events. */
enum {
    ORIENTATION_INFO = 1 /**< with direction and angle: the device is held another way */
};

/** Which side of the device is up. */
typedef enum {
    ORIENTATION_UNKNOWN = -1, /**< none, or one that this interface does not know */
    ORIENTATION_FACE_UP = 0,  /**< it lies on its back */
    ORIENTATION_TOP_UP = 1,
    ORIENTATION_BOTTOM_UP = 2,
    ORIENTATION_LEFT_UP = 3,
    ORIENTATION_RIGHT_UP = 4,
    ORIENTATION_FACE_DOWN = 5 /**< it lies on its face */
} orientation_direction_t;

/**
 * Asks for the events of the orientation, for the calling thread's active channel. Asking again
 * for the same channel changes nothing. The events stop with the channel.
 *
 * @param flags 0
 *
 * Errors: as zel_channel_create(); ENOENT (the service is not there).
 */
ZEL_EXPORT int orientation_request_events(int flags);

/** The domain of the orientation; the same in every process and thread. Never fails. */
ZEL_EXPORT int orientation_get_domain(void);

/**
 * How the device is held now.
 *
 * @param direction may be NULL
 * @param angle 0, 90, 180 or 270 degrees by which the screen's content is turned to stand upright;
 * may be NULL
 *
 * Errors: ENOENT (the service is not there).
 */
ZEL_EXPORT int orientation_get(orientation_direction_t* direction, int* angle);

/** Which side is up. None: ORIENTATION_UNKNOWN. */
ZEL_EXPORT orientation_direction_t orientation_event_get_direction(const zel_event_t* event);

/** The angle, as for orientation_get(). None: -1. */
ZEL_EXPORT int orientation_event_get_angle(const zel_event_t* event);

#ifdef __cplusplus
}
#endif

#endif
