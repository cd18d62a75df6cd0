// SPDX-License-Identifier: Apache-2.0
#include <tamomock/PaymentServiceInterfaceProduction.h>

namespace tamomock {

PaymentServiceInterfaceProduction::~PaymentServiceInterfaceProduction() = default;

} // namespace tamomock
