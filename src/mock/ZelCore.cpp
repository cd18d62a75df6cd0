// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ZelCore.h>

namespace tamomock {

ZelCore::~ZelCore() = default;

} // namespace tamomock
