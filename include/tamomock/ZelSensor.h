// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_ZELSENSOR_H
#define TAMOMOCK_ZELSENSOR_H

#include <tamo/export.h>
#include <tamomock/ZelEventProvider.h>

#include <zel/sensor.h>

namespace tamomock {

/**
 * The sensors, as the library calls it: one operation for each function of `<zel/sensor.h>`, named
 * after it without `sensor_`, after those of ZelEventProvider. What a function takes, returns and
 * does is said there; an operation of a substitute keeps to it as far as the code under test looks.
 *
 * @since 0.1
 */
class TAMO_EXPORT ZelSensor : public ZelEventProvider
{
public:
    ~ZelSensor() override;

    virtual bool isSupported(sensor_type_t type) = 0;
    virtual int setCalibration(sensor_type_t type, bool enable) = 0;
    virtual int setSkipDuplicates(sensor_type_t type, bool enable) = 0;
    virtual int setRate(sensor_type_t type, unsigned int delay) = 0;
    virtual int eventGetXyz(const zel_event_t* event, double* x, double* y, double* z) = 0;
    virtual int eventGetApr(const zel_event_t* event, double* azimuth, double* pitch,
                            double* roll) = 0;
    virtual double eventGetAltitude(const zel_event_t* event) = 0;
    virtual double eventGetTemperature(const zel_event_t* event) = 0;
    virtual double eventGetProximity(const zel_event_t* event) = 0;
    virtual double eventGetIlluminance(const zel_event_t* event) = 0;
    virtual int eventGetRotationMatrix(const zel_event_t* event, double* matrix) = 0;
    virtual int eventGetRotationVector(const zel_event_t* event, double* vector) = 0;
    virtual sensor_accuracy_t eventGetAccuracy(const zel_event_t* event) = 0;
    virtual int info(sensor_type_t type, sensor_info_t** info) = 0;
    virtual double infoGetResolution(const sensor_info_t* info) = 0;
    virtual double infoGetRangeMinimum(const sensor_info_t* info) = 0;
    virtual double infoGetRangeMaximum(const sensor_info_t* info) = 0;
    virtual int infoGetDelayMininum(const sensor_info_t* info) = 0;
    virtual int infoGetDelayMaximum(const sensor_info_t* info) = 0;
    virtual int infoGetDelayDefault(const sensor_info_t* info) = 0;
    virtual double infoGetPower(const sensor_info_t* info) = 0;
    virtual void infoDestroy(sensor_info_t** info) = 0;
};

} // namespace tamomock

#endif
