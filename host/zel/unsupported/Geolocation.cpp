// SPDX-License-Identifier: Apache-2.0
#include "Unsupported.h"

#include "core/Domain.h"

#include <zel/geolocation.h>

#include <cmath>

int geolocation_get_domain()
{
    return zel::number(zel::Domain::Geolocation);
}

ZEL_UNSUPPORTED(-1, int geolocation_request_events(int))
ZEL_UNSUPPORTED(-1, int geolocation_stop_events(int))
ZEL_UNSUPPORTED(-1, int geolocation_set_period(unsigned int))
ZEL_UNSUPPORTED(NAN, double geolocation_event_get_latitude(const zel_event_t*))
ZEL_UNSUPPORTED(NAN, double geolocation_event_get_longitude(const zel_event_t*))
ZEL_UNSUPPORTED(NAN, double geolocation_event_get_accuracy(const zel_event_t*))
ZEL_UNSUPPORTED(false, bool geolocation_event_is_coarse(const zel_event_t*))
ZEL_UNSUPPORTED(NAN, double geolocation_event_get_altitude(const zel_event_t*))
ZEL_UNSUPPORTED(false, bool geolocation_event_is_altitude_valid(const zel_event_t*))
ZEL_UNSUPPORTED(NAN, double geolocation_event_get_altitude_accuracy(const zel_event_t*))
ZEL_UNSUPPORTED(false, bool geolocation_event_is_altitude_accuracy_valid(const zel_event_t*))
ZEL_UNSUPPORTED(NAN, double geolocation_event_get_heading(const zel_event_t*))
ZEL_UNSUPPORTED(false, bool geolocation_event_is_heading_valid(const zel_event_t*))
ZEL_UNSUPPORTED(NAN, double geolocation_event_get_speed(const zel_event_t*))
ZEL_UNSUPPORTED(false, bool geolocation_event_is_speed_valid(const zel_event_t*))
ZEL_UNSUPPORTED(-1, int geolocation_event_get_gps_week(const zel_event_t*))
ZEL_UNSUPPORTED(false, bool geolocation_event_is_gps_week_valid(const zel_event_t*))
ZEL_UNSUPPORTED(NAN, double geolocation_event_get_gps_time_of_week(const zel_event_t*))
ZEL_UNSUPPORTED(false, bool geolocation_event_is_gps_time_of_week_valid(const zel_event_t*))
ZEL_UNSUPPORTED(-1, int64_t geolocation_event_get_utc_time(const zel_event_t*))
ZEL_UNSUPPORTED(false, bool geolocation_event_is_utc_time_valid(const zel_event_t*))
ZEL_UNSUPPORTED(-1, int geolocation_event_get_num_satellites(const zel_event_t*))
ZEL_UNSUPPORTED(false, bool geolocation_event_is_num_satellites_valid(const zel_event_t*))
ZEL_UNSUPPORTED(-1, int geolocation_event_get_satellite_id(const zel_event_t*, int))
ZEL_UNSUPPORTED(NAN,
                double geolocation_event_get_satellite_carrier_to_noise_ratio(const zel_event_t*,
                                                                              int))
ZEL_UNSUPPORTED(false,
                bool geolocation_event_get_satellite_is_ephemeris_decoded(const zel_event_t*, int))
ZEL_UNSUPPORTED(NAN, double geolocation_event_get_satellite_azimuth(const zel_event_t*, int))
ZEL_UNSUPPORTED(NAN, double geolocation_event_get_satellite_elevation(const zel_event_t*, int))
ZEL_UNSUPPORTED(false, bool geolocation_event_get_satellite_is_tracked(const zel_event_t*, int))
ZEL_UNSUPPORTED(false, bool geolocation_event_get_satellite_is_used(const zel_event_t*, int))
