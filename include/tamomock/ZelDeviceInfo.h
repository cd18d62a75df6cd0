// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_ZELDEVICEINFO_H
#define TAMOMOCK_ZELDEVICEINFO_H

#include <tamo/export.h>

#include <zel/deviceinfo.h>

namespace tamomock {

/**
 * The device information, as the library calls it: one operation for each function of
 * `<zel/deviceinfo.h>`, named after it without `deviceinfo_`. What a function takes, returns and
 * does is said there; an operation of a substitute keeps to it as far as the code under test looks.
 *
 * @since 0.1
 */
class TAMO_EXPORT ZelDeviceInfo
{
public:
    ZelDeviceInfo() = default;
    ZelDeviceInfo(const ZelDeviceInfo&) = delete;
    ZelDeviceInfo& operator=(const ZelDeviceInfo&) = delete;
    virtual ~ZelDeviceInfo();

    virtual int getData(deviceinfo_data_t** data) = 0;
    virtual void freeData(deviceinfo_data_t** data) = 0;
    virtual int getIdentifyingData(deviceinfo_identifying_data_t** data) = 0;
    virtual void freeIdentifyingData(deviceinfo_identifying_data_t** data) = 0;
};

} // namespace tamomock

#endif
