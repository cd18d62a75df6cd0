// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ZelSensorImpl.h>

namespace tamomock {

ZelSensorImpl::~ZelSensorImpl() = default;

int ZelSensorImpl::requestEvents(int flags)
{
    return sensor_request_events(flags);
}

int ZelSensorImpl::getDomain()
{
    return sensor_get_domain();
}

int ZelSensorImpl::stopEvents(int flags)
{
    return sensor_stop_events(flags);
}

bool ZelSensorImpl::isSupported(sensor_type_t type)
{
    return sensor_is_supported(type);
}

int ZelSensorImpl::setCalibration(sensor_type_t type, bool enable)
{
    return sensor_set_calibration(type, enable);
}

int ZelSensorImpl::setSkipDuplicates(sensor_type_t type, bool enable)
{
    return sensor_set_skip_duplicates(type, enable);
}

int ZelSensorImpl::setRate(sensor_type_t type, unsigned int delay)
{
    return sensor_set_rate(type, delay);
}

int ZelSensorImpl::eventGetXyz(const zel_event_t* event, double* x, double* y, double* z)
{
    return sensor_event_get_xyz(event, x, y, z);
}

int ZelSensorImpl::eventGetApr(const zel_event_t* event, double* azimuth, double* pitch,
                               double* roll)
{
    return sensor_event_get_apr(event, azimuth, pitch, roll);
}

double ZelSensorImpl::eventGetAltitude(const zel_event_t* event)
{
    return sensor_event_get_altitude(event);
}

double ZelSensorImpl::eventGetTemperature(const zel_event_t* event)
{
    return sensor_event_get_temperature(event);
}

double ZelSensorImpl::eventGetProximity(const zel_event_t* event)
{
    return sensor_event_get_proximity(event);
}

double ZelSensorImpl::eventGetIlluminance(const zel_event_t* event)
{
    return sensor_event_get_illuminance(event);
}

int ZelSensorImpl::eventGetRotationMatrix(const zel_event_t* event, double* matrix)
{
    return sensor_event_get_rotation_matrix(event, matrix);
}

int ZelSensorImpl::eventGetRotationVector(const zel_event_t* event, double* vector)
{
    return sensor_event_get_rotation_vector(event, vector);
}

sensor_accuracy_t ZelSensorImpl::eventGetAccuracy(const zel_event_t* event)
{
    return sensor_event_get_accuracy(event);
}

int ZelSensorImpl::info(sensor_type_t type, sensor_info_t** info)
{
    return sensor_info(type, info);
}

double ZelSensorImpl::infoGetResolution(const sensor_info_t* info)
{
    return sensor_info_get_resolution(info);
}

double ZelSensorImpl::infoGetRangeMinimum(const sensor_info_t* info)
{
    return sensor_info_get_range_minimum(info);
}

double ZelSensorImpl::infoGetRangeMaximum(const sensor_info_t* info)
{
    return sensor_info_get_range_maximum(info);
}

int ZelSensorImpl::infoGetDelayMininum(const sensor_info_t* info)
{
    return sensor_info_get_delay_mininum(info);
}

int ZelSensorImpl::infoGetDelayMaximum(const sensor_info_t* info)
{
    return sensor_info_get_delay_maximum(info);
}

int ZelSensorImpl::infoGetDelayDefault(const sensor_info_t* info)
{
    return sensor_info_get_delay_default(info);
}

double ZelSensorImpl::infoGetPower(const sensor_info_t* info)
{
    return sensor_info_get_power(info);
}

void ZelSensorImpl::infoDestroy(sensor_info_t** info)
{
    sensor_info_destroy(info);
}

} // namespace tamomock
