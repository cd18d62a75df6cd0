/* SPDX-License-Identifier: Apache-2.0 */
/**
 * @file
 * The geolocation: where on earth the device is.
 *
 * What is in an event is asked for by its getters; texts are zero-terminated UTF-8 and valid as
 * long as the event; an event of another domain, or one without that part, gives the value that
 * is said to be "none", with `errno` EINVAL. Satellites are counted from 0; an index beyond
 * them gives "none". On a platform without the service every function that can fail fails with
 * ENOTSUP, getters of events included; geolocation_get_domain() never fails.
 */
#ifndef ZEL_GEOLOCATION_H
#define ZEL_GEOLOCATION_H

#include <zel/export.h>
#include <zel/zel.h>

#include <stdbool.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/** The codes of the geolocation's events. */
enum {
    GEOLOCATION_INFO = 1 /**< with everything that is known of the position */
};

/**
 * Asks for the events of the geolocation, for the calling thread's active channel. Asking again
 * for the same channel changes nothing. The events stop with the channel, or with
 * geolocation_stop_events().
 *
 * @param flags 0
 *
 * Errors: as zel_channel_create(); ENOENT (the service is not there).
 */
ZEL_EXPORT int geolocation_request_events(int flags);

/** The domain of the geolocation; the same in every process and thread. Never fails. */
ZEL_EXPORT int geolocation_get_domain(void);

/**
 * Ends what geolocation_request_events() began with the same flags for the calling thread's active
 * channel. Events that are in the channel already still come.
 *
 * Errors: as zel_channel_create(); ENOENT (nothing was begun).
 */
ZEL_EXPORT int geolocation_stop_events(int flags);

/**
 * Sets how often an event comes, for the calling thread's active channel.
 *
 * @param seconds above 0; 0: once, at the next position
 */
ZEL_EXPORT int geolocation_set_period(unsigned int seconds);

/** Latitude in degrees, -90 to 90, north positive. None: NaN. */
ZEL_EXPORT double geolocation_event_get_latitude(const zel_event_t* event);

/** Longitude in degrees, -180 to 180, east positive. None: NaN. */
ZEL_EXPORT double geolocation_event_get_longitude(const zel_event_t* event);

/** How far the position may be wrong, in metres. None: NaN. */
ZEL_EXPORT double geolocation_event_get_accuracy(const zel_event_t* event);

/** Whether the position is no more than a guess. None: false. */
ZEL_EXPORT bool geolocation_event_is_coarse(const zel_event_t* event);

/** Altitude above the ellipsoid in metres. None: NaN. */
ZEL_EXPORT double geolocation_event_get_altitude(const zel_event_t* event);

/** Whether geolocation_event_get_altitude() has a value. None: false. */
ZEL_EXPORT bool geolocation_event_is_altitude_valid(const zel_event_t* event);

/** How far the altitude may be wrong, in metres. None: NaN. */
ZEL_EXPORT double geolocation_event_get_altitude_accuracy(const zel_event_t* event);

/** Whether geolocation_event_get_altitude_accuracy() has a value. None: false. */
ZEL_EXPORT bool geolocation_event_is_altitude_accuracy_valid(const zel_event_t* event);

/** Which way the device moves, in degrees clockwise from north. None: NaN. */
ZEL_EXPORT double geolocation_event_get_heading(const zel_event_t* event);

/** Whether geolocation_event_get_heading() has a value. None: false. */
ZEL_EXPORT bool geolocation_event_is_heading_valid(const zel_event_t* event);

/** How fast the device moves, in metres a second. None: NaN. */
ZEL_EXPORT double geolocation_event_get_speed(const zel_event_t* event);

/** Whether geolocation_event_get_speed() has a value. None: false. */
ZEL_EXPORT bool geolocation_event_is_speed_valid(const zel_event_t* event);

/** The GPS week. None: -1. */
ZEL_EXPORT int geolocation_event_get_gps_week(const zel_event_t* event);

/** Whether geolocation_event_get_gps_week() has a value. None: false. */
ZEL_EXPORT bool geolocation_event_is_gps_week_valid(const zel_event_t* event);

/** The time since the GPS week began, in seconds. None: NaN. */
ZEL_EXPORT double geolocation_event_get_gps_time_of_week(const zel_event_t* event);

/** Whether geolocation_event_get_gps_time_of_week() has a value. None: false. */
ZEL_EXPORT bool geolocation_event_is_gps_time_of_week_valid(const zel_event_t* event);

/** The time of the position, in milliseconds since 1970-01-01 UTC. None: -1. */
ZEL_EXPORT int64_t geolocation_event_get_utc_time(const zel_event_t* event);

/** Whether geolocation_event_get_utc_time() has a value. None: false. */
ZEL_EXPORT bool geolocation_event_is_utc_time_valid(const zel_event_t* event);

/** How many satellites are described. None: -1. */
ZEL_EXPORT int geolocation_event_get_num_satellites(const zel_event_t* event);

/** Whether geolocation_event_get_num_satellites() has a value. None: false. */
ZEL_EXPORT bool geolocation_event_is_num_satellites_valid(const zel_event_t* event);

/** The number of a satellite. None: -1. */
ZEL_EXPORT int geolocation_event_get_satellite_id(const zel_event_t* event, int index);

/** The strength of its signal, in dB-Hz. None: NaN. */
ZEL_EXPORT double geolocation_event_get_satellite_carrier_to_noise_ratio(const zel_event_t* event,
                                                                         int index);

/** Whether its orbit is known. None: false. */
ZEL_EXPORT bool geolocation_event_get_satellite_is_ephemeris_decoded(const zel_event_t* event,
                                                                     int index);

/** Its azimuth in degrees clockwise from north. None: NaN. */
ZEL_EXPORT double geolocation_event_get_satellite_azimuth(const zel_event_t* event, int index);

/** Its elevation in degrees above the horizon. None: NaN. */
ZEL_EXPORT double geolocation_event_get_satellite_elevation(const zel_event_t* event, int index);

/** Whether its signal is followed. None: false. */
ZEL_EXPORT bool geolocation_event_get_satellite_is_tracked(const zel_event_t* event, int index);

/** Whether it was used for the position. None: false. */
ZEL_EXPORT bool geolocation_event_get_satellite_is_used(const zel_event_t* event, int index);

#ifdef __cplusplus
}
#endif

#endif
