// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ZelPaymentService.h>

namespace tamomock {

ZelPaymentService::~ZelPaymentService() = default;

} // namespace tamomock
