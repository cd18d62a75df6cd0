// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ZelLocale.h>

namespace tamomock {

ZelLocale::~ZelLocale() = default;

} // namespace tamomock
