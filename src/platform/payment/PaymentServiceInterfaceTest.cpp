// SPDX-License-Identifier: Apache-2.0
#include <tamomock/PaymentServiceInterfaceTest.h>

namespace tamomock {

PaymentServiceInterfaceTest::~PaymentServiceInterfaceTest() = default;

} // namespace tamomock
