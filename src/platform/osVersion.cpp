// SPDX-License-Identifier: Apache-2.0
#include <tamo/platform/osVersion.h>

#include <tamomock/ZelApi.h>
#include <tamomock/ZelCore.h>
#include <tamomock/ZelDeviceInfo.h>

namespace tamo::platform {

QString osVersion()
{
    QString version = QStringLiteral("0.0.0.0");
    tamomock::ZelApi& api = *tamomock::ZelApi::instance();
    if (api.core()->initialize() != 0)
        return version;
    deviceinfo_data_t* data = nullptr;
    if (api.deviceInfo()->getData(&data) == 0) {
        version = QString::fromUtf8(data->os_version);
        api.deviceInfo()->freeData(&data);
    }
    api.core()->shutdown();
    return version;
}

} // namespace tamo::platform
