// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ZelGeolocation.h>

namespace tamomock {

ZelGeolocation::~ZelGeolocation() = default;

} // namespace tamomock
