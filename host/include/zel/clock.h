/* SPDX-License-Identifier: Apache-2.0 */
/**
 * @file
 * The clock: it is set, or the device comes to another time zone.
 *
 * What is in an event is asked for by its getters; texts are zero-terminated UTF-8 and valid as
 * long as the event; an event of another domain, or one without that part, gives the value that
 * is said to be "none", with `errno` EINVAL. On a platform without the service every function
 * that can fail fails with ENOTSUP, getters of events included; clock_get_domain() never fails.
 */
#ifndef ZEL_CLOCK_H
#define ZEL_CLOCK_H

#include <zel/export.h>
#include <zel/zel.h>

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/** The codes of the clock's events. */
enum {
    CLOCK_DATE = 1,     /**< with the change: date and time were set */
    CLOCK_TIME_ZONE = 2 /**< with the zone: the time zone is another */
};

/**
 * Asks for the events of the clock, for the calling thread's active channel. Asking again for the
 * same channel changes nothing. The events stop with the channel.
 *
 * @param flags 0
 *
 * Errors: as zel_channel_create(); ENOENT (the service is not there).
 */
ZEL_EXPORT int clock_request_events(int flags);

/** The domain of the clock; the same in every process and thread. Never fails. */
ZEL_EXPORT int clock_get_domain(void);

/** How far the clock was set, in seconds, forward or (negative) back. None: 0. */
ZEL_EXPORT int64_t clock_event_get_date_change(const zel_event_t* event);

/** The time zone by its name, such as "America/Toronto". None: NULL. */
ZEL_EXPORT const char* clock_event_get_time_zone_change(const zel_event_t* event);

#ifdef __cplusplus
}
#endif

#endif
