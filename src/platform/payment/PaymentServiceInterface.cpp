// SPDX-License-Identifier: Apache-2.0
#include <tamomock/PaymentServiceInterface.h>

namespace tamomock {

PaymentServiceInterface::PaymentServiceInterface(QObject* parent) : QObject(parent) {}

PaymentServiceInterface::~PaymentServiceInterface() = default;

} // namespace tamomock
