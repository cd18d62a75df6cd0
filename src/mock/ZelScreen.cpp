// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ZelScreen.h>

namespace tamomock {

ZelScreen::~ZelScreen() = default;

} // namespace tamomock
