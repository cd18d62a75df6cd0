// SPDX-License-Identifier: Apache-2.0
#include <tamo/platform/PaymentServiceException.h>

namespace tamo {
namespace platform {

PaymentServiceException::~PaymentServiceException() = default;

} // namespace platform
} // namespace tamo
