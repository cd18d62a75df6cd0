// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ZelGeolocationImpl.h>

namespace tamomock {

ZelGeolocationImpl::~ZelGeolocationImpl() = default;

int ZelGeolocationImpl::requestEvents(int flags)
{
    return geolocation_request_events(flags);
}

int ZelGeolocationImpl::getDomain()
{
    return geolocation_get_domain();
}

int ZelGeolocationImpl::stopEvents(int flags)
{
    return geolocation_stop_events(flags);
}

int ZelGeolocationImpl::setPeriod(unsigned int seconds)
{
    return geolocation_set_period(seconds);
}

double ZelGeolocationImpl::eventGetLatitude(const zel_event_t* event)
{
    return geolocation_event_get_latitude(event);
}

double ZelGeolocationImpl::eventGetLongitude(const zel_event_t* event)
{
    return geolocation_event_get_longitude(event);
}

double ZelGeolocationImpl::eventGetAccuracy(const zel_event_t* event)
{
    return geolocation_event_get_accuracy(event);
}

bool ZelGeolocationImpl::eventIsCoarse(const zel_event_t* event)
{
    return geolocation_event_is_coarse(event);
}

double ZelGeolocationImpl::eventGetAltitude(const zel_event_t* event)
{
    return geolocation_event_get_altitude(event);
}

bool ZelGeolocationImpl::eventIsAltitudeValid(const zel_event_t* event)
{
    return geolocation_event_is_altitude_valid(event);
}

double ZelGeolocationImpl::eventGetAltitudeAccuracy(const zel_event_t* event)
{
    return geolocation_event_get_altitude_accuracy(event);
}

bool ZelGeolocationImpl::eventIsAltitudeAccuracyValid(const zel_event_t* event)
{
    return geolocation_event_is_altitude_accuracy_valid(event);
}

double ZelGeolocationImpl::eventGetHeading(const zel_event_t* event)
{
    return geolocation_event_get_heading(event);
}

bool ZelGeolocationImpl::eventIsHeadingValid(const zel_event_t* event)
{
    return geolocation_event_is_heading_valid(event);
}

double ZelGeolocationImpl::eventGetSpeed(const zel_event_t* event)
{
    return geolocation_event_get_speed(event);
}

bool ZelGeolocationImpl::eventIsSpeedValid(const zel_event_t* event)
{
    return geolocation_event_is_speed_valid(event);
}

int ZelGeolocationImpl::eventGetGpsWeek(const zel_event_t* event)
{
    return geolocation_event_get_gps_week(event);
}

bool ZelGeolocationImpl::eventIsGpsWeekValid(const zel_event_t* event)
{
    return geolocation_event_is_gps_week_valid(event);
}

double ZelGeolocationImpl::eventGetGpsTimeOfWeek(const zel_event_t* event)
{
    return geolocation_event_get_gps_time_of_week(event);
}

bool ZelGeolocationImpl::eventIsGpsTimeOfWeekValid(const zel_event_t* event)
{
    return geolocation_event_is_gps_time_of_week_valid(event);
}

int64_t ZelGeolocationImpl::eventGetUtcTime(const zel_event_t* event)
{
    return geolocation_event_get_utc_time(event);
}

bool ZelGeolocationImpl::eventIsUtcTimeValid(const zel_event_t* event)
{
    return geolocation_event_is_utc_time_valid(event);
}

int ZelGeolocationImpl::eventGetNumSatellites(const zel_event_t* event)
{
    return geolocation_event_get_num_satellites(event);
}

bool ZelGeolocationImpl::eventIsNumSatellitesValid(const zel_event_t* event)
{
    return geolocation_event_is_num_satellites_valid(event);
}

int ZelGeolocationImpl::eventGetSatelliteId(const zel_event_t* event, int index)
{
    return geolocation_event_get_satellite_id(event, index);
}

double ZelGeolocationImpl::eventGetSatelliteCarrierToNoiseRatio(const zel_event_t* event, int index)
{
    return geolocation_event_get_satellite_carrier_to_noise_ratio(event, index);
}

bool ZelGeolocationImpl::eventGetSatelliteIsEphemerisDecoded(const zel_event_t* event, int index)
{
    return geolocation_event_get_satellite_is_ephemeris_decoded(event, index);
}

double ZelGeolocationImpl::eventGetSatelliteAzimuth(const zel_event_t* event, int index)
{
    return geolocation_event_get_satellite_azimuth(event, index);
}

double ZelGeolocationImpl::eventGetSatelliteElevation(const zel_event_t* event, int index)
{
    return geolocation_event_get_satellite_elevation(event, index);
}

bool ZelGeolocationImpl::eventGetSatelliteIsTracked(const zel_event_t* event, int index)
{
    return geolocation_event_get_satellite_is_tracked(event, index);
}

bool ZelGeolocationImpl::eventGetSatelliteIsUsed(const zel_event_t* event, int index)
{
    return geolocation_event_get_satellite_is_used(event, index);
}

} // namespace tamomock
