// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ZelNetStatus.h>

namespace tamomock {

ZelNetStatus::~ZelNetStatus() = default;

} // namespace tamomock
