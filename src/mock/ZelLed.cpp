// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ZelLed.h>

namespace tamomock {

ZelLed::~ZelLed() = default;

} // namespace tamomock
