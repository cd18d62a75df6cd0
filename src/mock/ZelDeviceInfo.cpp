// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ZelDeviceInfo.h>

namespace tamomock {

ZelDeviceInfo::~ZelDeviceInfo() = default;

} // namespace tamomock
