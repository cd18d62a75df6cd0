// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_ZELGEOLOCATION_H
#define TAMOMOCK_ZELGEOLOCATION_H

#include <tamo/export.h>
#include <tamomock/ZelEventProvider.h>

#include <zel/geolocation.h>

namespace tamomock {

/**
 * The geolocation, as the library calls it: one operation for each function of
 * `<zel/geolocation.h>`, named after it without `geolocation_`, after those of ZelEventProvider.
 * What a function takes, returns and does is said there; an operation of a substitute keeps to it
 * as far as the code under test looks.
 *
 * @since 0.1
 */
class TAMO_EXPORT ZelGeolocation : public ZelEventProvider
{
public:
    ~ZelGeolocation() override;

    virtual int setPeriod(unsigned int seconds) = 0;
    virtual double eventGetLatitude(const zel_event_t* event) = 0;
    virtual double eventGetLongitude(const zel_event_t* event) = 0;
    virtual double eventGetAccuracy(const zel_event_t* event) = 0;
    virtual bool eventIsCoarse(const zel_event_t* event) = 0;
    virtual double eventGetAltitude(const zel_event_t* event) = 0;
    virtual bool eventIsAltitudeValid(const zel_event_t* event) = 0;
    virtual double eventGetAltitudeAccuracy(const zel_event_t* event) = 0;
    virtual bool eventIsAltitudeAccuracyValid(const zel_event_t* event) = 0;
    virtual double eventGetHeading(const zel_event_t* event) = 0;
    virtual bool eventIsHeadingValid(const zel_event_t* event) = 0;
    virtual double eventGetSpeed(const zel_event_t* event) = 0;
    virtual bool eventIsSpeedValid(const zel_event_t* event) = 0;
    virtual int eventGetGpsWeek(const zel_event_t* event) = 0;
    virtual bool eventIsGpsWeekValid(const zel_event_t* event) = 0;
    virtual double eventGetGpsTimeOfWeek(const zel_event_t* event) = 0;
    virtual bool eventIsGpsTimeOfWeekValid(const zel_event_t* event) = 0;
    virtual int64_t eventGetUtcTime(const zel_event_t* event) = 0;
    virtual bool eventIsUtcTimeValid(const zel_event_t* event) = 0;
    virtual int eventGetNumSatellites(const zel_event_t* event) = 0;
    virtual bool eventIsNumSatellitesValid(const zel_event_t* event) = 0;
    virtual int eventGetSatelliteId(const zel_event_t* event, int index) = 0;
    virtual double eventGetSatelliteCarrierToNoiseRatio(const zel_event_t* event, int index) = 0;
    virtual bool eventGetSatelliteIsEphemerisDecoded(const zel_event_t* event, int index) = 0;
    virtual double eventGetSatelliteAzimuth(const zel_event_t* event, int index) = 0;
    virtual double eventGetSatelliteElevation(const zel_event_t* event, int index) = 0;
    virtual bool eventGetSatelliteIsTracked(const zel_event_t* event, int index) = 0;
    virtual bool eventGetSatelliteIsUsed(const zel_event_t* event, int index) = 0;
};

} // namespace tamomock

#endif
