// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_ZELGEOLOCATIONIMPL_H
#define TAMOMOCK_ZELGEOLOCATIONIMPL_H

#include <tamo/export.h>
#include <tamomock/ZelGeolocation.h>

namespace tamomock {

/**
 * The default ZelGeolocation: each operation calls the function that it is named after.
 *
 * @since 0.1
 */
class TAMO_EXPORT ZelGeolocationImpl : public ZelGeolocation
{
public:
    ~ZelGeolocationImpl() override;

    int requestEvents(int flags) override;
    int getDomain() override;
    int stopEvents(int flags) override;
    int setPeriod(unsigned int seconds) override;
    double eventGetLatitude(const zel_event_t* event) override;
    double eventGetLongitude(const zel_event_t* event) override;
    double eventGetAccuracy(const zel_event_t* event) override;
    bool eventIsCoarse(const zel_event_t* event) override;
    double eventGetAltitude(const zel_event_t* event) override;
    bool eventIsAltitudeValid(const zel_event_t* event) override;
    double eventGetAltitudeAccuracy(const zel_event_t* event) override;
    bool eventIsAltitudeAccuracyValid(const zel_event_t* event) override;
    double eventGetHeading(const zel_event_t* event) override;
    bool eventIsHeadingValid(const zel_event_t* event) override;
    double eventGetSpeed(const zel_event_t* event) override;
    bool eventIsSpeedValid(const zel_event_t* event) override;
    int eventGetGpsWeek(const zel_event_t* event) override;
    bool eventIsGpsWeekValid(const zel_event_t* event) override;
    double eventGetGpsTimeOfWeek(const zel_event_t* event) override;
    bool eventIsGpsTimeOfWeekValid(const zel_event_t* event) override;
    int64_t eventGetUtcTime(const zel_event_t* event) override;
    bool eventIsUtcTimeValid(const zel_event_t* event) override;
    int eventGetNumSatellites(const zel_event_t* event) override;
    bool eventIsNumSatellitesValid(const zel_event_t* event) override;
    int eventGetSatelliteId(const zel_event_t* event, int index) override;
    double eventGetSatelliteCarrierToNoiseRatio(const zel_event_t* event, int index) override;
    bool eventGetSatelliteIsEphemerisDecoded(const zel_event_t* event, int index) override;
    double eventGetSatelliteAzimuth(const zel_event_t* event, int index) override;
    double eventGetSatelliteElevation(const zel_event_t* event, int index) override;
    bool eventGetSatelliteIsTracked(const zel_event_t* event, int index) override;
    bool eventGetSatelliteIsUsed(const zel_event_t* event, int index) override;
};

} // namespace tamomock

#endif
