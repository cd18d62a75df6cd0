// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ZelClock.h>

namespace tamomock {

ZelClock::~ZelClock() = default;

} // namespace tamomock
