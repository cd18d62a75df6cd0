// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_ZELDEVICEINFOIMPL_H
#define TAMOMOCK_ZELDEVICEINFOIMPL_H

#include <tamo/export.h>
#include <tamomock/ZelDeviceInfo.h>

namespace tamomock {

/**
 * The default ZelDeviceInfo: each operation calls the function that it is named after.
 *
 * @since 0.1
 */
class TAMO_EXPORT ZelDeviceInfoImpl : public ZelDeviceInfo
{
public:
    ~ZelDeviceInfoImpl() override;

    int getData(deviceinfo_data_t** data) override;
    void freeData(deviceinfo_data_t** data) override;
    int getIdentifyingData(deviceinfo_identifying_data_t** data) override;
    void freeIdentifyingData(deviceinfo_identifying_data_t** data) override;
};

} // namespace tamomock

#endif
