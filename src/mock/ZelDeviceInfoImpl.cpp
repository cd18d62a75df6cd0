// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ZelDeviceInfoImpl.h>

namespace tamomock {

ZelDeviceInfoImpl::~ZelDeviceInfoImpl() = default;

int ZelDeviceInfoImpl::getData(deviceinfo_data_t** data)
{
    return deviceinfo_get_data(data);
}

void ZelDeviceInfoImpl::freeData(deviceinfo_data_t** data)
{
    deviceinfo_free_data(data);
}

int ZelDeviceInfoImpl::getIdentifyingData(deviceinfo_identifying_data_t** data)
{
    return deviceinfo_get_identifying_data(data);
}

void ZelDeviceInfoImpl::freeIdentifyingData(deviceinfo_identifying_data_t** data)
{
    deviceinfo_free_identifying_data(data);
}

} // namespace tamomock
