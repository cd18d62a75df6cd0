// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ZelAudioDevice.h>

namespace tamomock {

ZelAudioDevice::~ZelAudioDevice() = default;

} // namespace tamomock
