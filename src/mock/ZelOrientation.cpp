// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ZelOrientation.h>

namespace tamomock {

ZelOrientation::~ZelOrientation() = default;

} // namespace tamomock
