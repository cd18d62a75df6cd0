// SPDX-License-Identifier: Apache-2.0
#include "DeviceService.h"

#include "services/Publisher.h"

#include <utility>
#include <vector>

namespace tamobox {

namespace {

using Attributes = std::vector<std::pair<const char*, const char*>>;

void publishOnce(const std::string& object, const Attributes& attributes)
{
    Publisher publisher(object);
    if (publisher.published())
        return;
    publisher.publish([&](MessageWriter& message) {
        for (const auto& [name, value] : attributes)
            message.add(name, value);
    });
}

} // namespace

DeviceService::DeviceService(EventLoop&)
{
    publishOnce("services/deviceinfo/data", {{"OsVersion", "1.0.0.0"},
                                             {"DeviceName", "Phone in a box"},
                                             {"ModelName", "Box"},
                                             {"ModelNumber", "BOX-1"}});
    publishOnce("services/deviceinfo/identity",
                {{"SerialNumber", "000000000001"}, {"HardwareId", "0x00000001"}});
}

} // namespace tamobox
