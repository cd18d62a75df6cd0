// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ZelNavigator.h>

namespace tamomock {

ZelNavigator::~ZelNavigator() = default;

} // namespace tamomock
