// SPDX-License-Identifier: Apache-2.0
#include "Unsupported.h"

#include "core/Domain.h"

#include <zel/sensor.h>

#include <cmath>

int sensor_get_domain()
{
    return zel::number(zel::Domain::Sensor);
}

int sensor_info(sensor_type_t, sensor_info_t** info)
{
    return zel::unsupportedRecord(info);
}

void sensor_info_destroy(sensor_info_t** info)
{
    zel::freeUnsupportedRecord(info);
}

ZEL_UNSUPPORTED(-1, int sensor_request_events(int))
ZEL_UNSUPPORTED(-1, int sensor_stop_events(int))
ZEL_UNSUPPORTED(false, bool sensor_is_supported(sensor_type_t))
ZEL_UNSUPPORTED(-1, int sensor_set_calibration(sensor_type_t, bool))
ZEL_UNSUPPORTED(-1, int sensor_set_skip_duplicates(sensor_type_t, bool))
ZEL_UNSUPPORTED(-1, int sensor_set_rate(sensor_type_t, unsigned int))
ZEL_UNSUPPORTED(-1, int sensor_event_get_xyz(const zel_event_t*, double*, double*, double*))
ZEL_UNSUPPORTED(-1, int sensor_event_get_apr(const zel_event_t*, double*, double*, double*))
ZEL_UNSUPPORTED(NAN, double sensor_event_get_altitude(const zel_event_t*))
ZEL_UNSUPPORTED(NAN, double sensor_event_get_temperature(const zel_event_t*))
ZEL_UNSUPPORTED(NAN, double sensor_event_get_proximity(const zel_event_t*))
ZEL_UNSUPPORTED(NAN, double sensor_event_get_illuminance(const zel_event_t*))
ZEL_UNSUPPORTED(-1, int sensor_event_get_rotation_matrix(const zel_event_t*, double*))
ZEL_UNSUPPORTED(-1, int sensor_event_get_rotation_vector(const zel_event_t*, double*))
ZEL_UNSUPPORTED(SENSOR_ACCURACY_UNKNOWN,
                sensor_accuracy_t sensor_event_get_accuracy(const zel_event_t*))
ZEL_UNSUPPORTED(NAN, double sensor_info_get_resolution(const sensor_info_t*))
ZEL_UNSUPPORTED(NAN, double sensor_info_get_range_minimum(const sensor_info_t*))
ZEL_UNSUPPORTED(NAN, double sensor_info_get_range_maximum(const sensor_info_t*))
ZEL_UNSUPPORTED(-1, int sensor_info_get_delay_mininum(const sensor_info_t*))
ZEL_UNSUPPORTED(-1, int sensor_info_get_delay_maximum(const sensor_info_t*))
ZEL_UNSUPPORTED(-1, int sensor_info_get_delay_default(const sensor_info_t*))
ZEL_UNSUPPORTED(NAN, double sensor_info_get_power(const sensor_info_t*))
