// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ZelDialog.h>

namespace tamomock {

ZelDialog::~ZelDialog() = default;

} // namespace tamomock
