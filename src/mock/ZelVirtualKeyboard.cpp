// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ZelVirtualKeyboard.h>

namespace tamomock {

ZelVirtualKeyboard::~ZelVirtualKeyboard() = default;

} // namespace tamomock
