// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_ZELSENSORIMPL_H
#define TAMOMOCK_ZELSENSORIMPL_H

#include <tamo/export.h>
#include <tamomock/ZelSensor.h>

namespace tamomock {

/**
 * The default ZelSensor: each operation calls the function that it is named after.
 *
 * @since 0.1
 */
class TAMO_EXPORT ZelSensorImpl : public ZelSensor
{
public:
    ~ZelSensorImpl() override;

    int requestEvents(int flags) override;
    int getDomain() override;
    int stopEvents(int flags) override;
    bool isSupported(sensor_type_t type) override;
    int setCalibration(sensor_type_t type, bool enable) override;
    int setSkipDuplicates(sensor_type_t type, bool enable) override;
    int setRate(sensor_type_t type, unsigned int delay) override;
    int eventGetXyz(const zel_event_t* event, double* x, double* y, double* z) override;
    int eventGetApr(const zel_event_t* event, double* azimuth, double* pitch,
                    double* roll) override;
    double eventGetAltitude(const zel_event_t* event) override;
    double eventGetTemperature(const zel_event_t* event) override;
    double eventGetProximity(const zel_event_t* event) override;
    double eventGetIlluminance(const zel_event_t* event) override;
    int eventGetRotationMatrix(const zel_event_t* event, double* matrix) override;
    int eventGetRotationVector(const zel_event_t* event, double* vector) override;
    sensor_accuracy_t eventGetAccuracy(const zel_event_t* event) override;
    int info(sensor_type_t type, sensor_info_t** info) override;
    double infoGetResolution(const sensor_info_t* info) override;
    double infoGetRangeMinimum(const sensor_info_t* info) override;
    double infoGetRangeMaximum(const sensor_info_t* info) override;
    int infoGetDelayMininum(const sensor_info_t* info) override;
    int infoGetDelayMaximum(const sensor_info_t* info) override;
    int infoGetDelayDefault(const sensor_info_t* info) override;
    double infoGetPower(const sensor_info_t* info) override;
    void infoDestroy(sensor_info_t** info) override;
};

} // namespace tamomock

#endif
