/* SPDX-License-Identifier: Apache-2.0 */
/**
 * @file
 * The sensors: how the device moves and what is around it.
 *
 * What is in an event is asked for by its getters; texts are zero-terminated UTF-8 and valid as
 * long as the event; an event of another domain, or one without that part, gives the value that
 * is said to be "none", with `errno` EINVAL. Where a call fails nothing is written through its
 * arguments, unless it says otherwise. A sensor type that is none of those listed is EINVAL. On
 * a platform without the service every function that can fail fails with ENOTSUP, getters of
 * events included; sensor_get_domain() never fails.
 */
#ifndef ZEL_SENSOR_H
#define ZEL_SENSOR_H

#include <zel/export.h>
#include <zel/zel.h>

#include <stdbool.h>

#ifdef __cplusplus
extern "C" {
#endif

/** The sensors, and the codes of their events. */
typedef enum {
    SENSOR_TYPE_ACCELEROMETER = 1,       /**< with x, y, z in m/s2 */
    SENSOR_TYPE_MAGNETOMETER = 2,        /**< with x, y, z in microtesla */
    SENSOR_TYPE_GYROSCOPE = 3,           /**< with x, y, z in radian a second */
    SENSOR_TYPE_GRAVITY = 4,             /**< with x, y, z in m/s2 */
    SENSOR_TYPE_LINEAR_ACCELERATION = 5, /**< with x, y, z in m/s2 */
    SENSOR_TYPE_AZIMUTH_PITCH_ROLL = 6,  /**< with azimuth, pitch, roll */
    SENSOR_TYPE_ALTIMETER = 7,           /**< with altitude */
    SENSOR_TYPE_TEMPERATURE = 8,         /**< with temperature */
    SENSOR_TYPE_PROXIMITY = 9,           /**< with proximity */
    SENSOR_TYPE_LIGHT = 10,              /**< with illuminance */
    SENSOR_TYPE_ROTATION_MATRIX = 11,    /**< with the matrix */
    SENSOR_TYPE_ROTATION_VECTOR = 12     /**< with the vector */
} sensor_type_t;

/** How far a sensor's values can be relied on. */
typedef enum {
    SENSOR_ACCURACY_UNKNOWN = -1,
    SENSOR_ACCURACY_UNRELIABLE = 0,
    SENSOR_ACCURACY_LOW = 1,
    SENSOR_ACCURACY_MEDIUM = 2,
    SENSOR_ACCURACY_HIGH = 3
} sensor_accuracy_t;

/** What is known of a sensor. Its content is reached through functions. */
typedef struct sensor_info_record sensor_info_t;

/**
 * Asks for the events of a sensor, for the calling thread's active channel. Asking again for the
 * same channel changes nothing. The events stop with the channel, or with sensor_stop_events().
 *
 * @param flags the sensor, one of sensor_type_t
 *
 * Errors: as zel_channel_create(); ENOENT (the service is not there).
 */
ZEL_EXPORT int sensor_request_events(int flags);

/** The domain of the sensors; the same in every process and thread. Never fails. */
ZEL_EXPORT int sensor_get_domain(void);

/**
 * Ends what sensor_request_events() began with the same flags for the calling thread's active
 * channel. Events that are in the channel already still come.
 *
 * Errors: as zel_channel_create(); ENOENT (nothing was begun).
 */
ZEL_EXPORT int sensor_stop_events(int flags);

/** Whether the device has a sensor. False, with `errno`, where that cannot be known. */
ZEL_EXPORT bool sensor_is_supported(sensor_type_t type);

/** Sets whether a sensor calibrates itself while it is in use. False at first. */
ZEL_EXPORT int sensor_set_calibration(sensor_type_t type, bool enable);

/** Sets whether a value that is the same as the one before is left out. False at first. */
ZEL_EXPORT int sensor_set_skip_duplicates(sensor_type_t type, bool enable);

/** Sets how often an event comes: the time between two, in microseconds, above 0. */
ZEL_EXPORT int sensor_set_rate(sensor_type_t type, unsigned int delay);

/** The values along the three axes, as the sensor type says. Fails with EINVAL for "none". */
ZEL_EXPORT int sensor_event_get_xyz(const zel_event_t* event, double* x, double* y, double* z);

/**
 * Azimuth (0 to 360), pitch (-180 to 180) and roll (-90 to 90) in degrees. Fails with EINVAL for
 * "none".
 */
ZEL_EXPORT int sensor_event_get_apr(const zel_event_t* event, double* azimuth, double* pitch,
                                    double* roll);

/** The altitude above the sea in metres. None: NaN. */
ZEL_EXPORT double sensor_event_get_altitude(const zel_event_t* event);

/** The temperature in degrees Celsius. None: NaN. */
ZEL_EXPORT double sensor_event_get_temperature(const zel_event_t* event);

/** How far something is from the screen, in centimetres. None: NaN. */
ZEL_EXPORT double sensor_event_get_proximity(const zel_event_t* event);

/** How bright it is, in lux. None: NaN. */
ZEL_EXPORT double sensor_event_get_illuminance(const zel_event_t* event);

/**
 * The rotation as a matrix, row by row. Fails with EINVAL for "none".
 *
 * @param matrix room for nine
 */
ZEL_EXPORT int sensor_event_get_rotation_matrix(const zel_event_t* event, double* matrix);

/**
 * The rotation as a unit quaternion: x, y, z, w. Fails with EINVAL for "none".
 *
 * @param vector room for four
 */
ZEL_EXPORT int sensor_event_get_rotation_vector(const zel_event_t* event, double* vector);

/** How far the values can be relied on. None: SENSOR_ACCURACY_UNKNOWN. */
ZEL_EXPORT sensor_accuracy_t sensor_event_get_accuracy(const zel_event_t* event);

/**
 * What is known of a sensor.
 *
 * @param info the record, to be freed with sensor_info_destroy()
 *
 * Errors, after which `*info` is NULL: ENODEV (the device has no such sensor); EINVAL; ENOMEM.
 */
ZEL_EXPORT int sensor_info(sensor_type_t type, sensor_info_t** info);

/** The smallest difference that the sensor can tell, in its unit. Unknown: NaN. */
ZEL_EXPORT double sensor_info_get_resolution(const sensor_info_t* info);

/** The lowest value, in its unit. Unknown: NaN. */
ZEL_EXPORT double sensor_info_get_range_minimum(const sensor_info_t* info);

/** The highest value, in its unit. Unknown: NaN. */
ZEL_EXPORT double sensor_info_get_range_maximum(const sensor_info_t* info);

/** The shortest time between two events, in microseconds. Unknown: -1. */
ZEL_EXPORT int sensor_info_get_delay_mininum(const sensor_info_t* info);

/** The longest time between two events, in microseconds. Unknown: -1. */
ZEL_EXPORT int sensor_info_get_delay_maximum(const sensor_info_t* info);

/** The time between two events at first, in microseconds. Unknown: -1. */
ZEL_EXPORT int sensor_info_get_delay_default(const sensor_info_t* info);

/** How much the sensor uses, in milliampere. Unknown: NaN. */
ZEL_EXPORT double sensor_info_get_power(const sensor_info_t* info);

/** Frees a record and sets the pointer to it to NULL. A NULL in either place is allowed. */
ZEL_EXPORT void sensor_info_destroy(sensor_info_t** info);

#ifdef __cplusplus
}
#endif

#endif
