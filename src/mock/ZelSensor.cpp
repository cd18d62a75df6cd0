// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ZelSensor.h>

namespace tamomock {

ZelSensor::~ZelSensor() = default;

} // namespace tamomock
