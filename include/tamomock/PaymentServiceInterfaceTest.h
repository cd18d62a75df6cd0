// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_PAYMENTSERVICEINTERFACETEST_H
#define TAMOMOCK_PAYMENTSERVICEINTERFACETEST_H

#include <tamomock/PaymentServiceInterface.h>

namespace tamomock {

/**
 * Test mode, as a back end: mode 0.
 *
 * @since 0.1
 */
class TAMO_EXPORT PaymentServiceInterfaceTest : public PaymentServiceInterface
{
    Q_OBJECT

public:
    using PaymentServiceInterface::PaymentServiceInterface;
    ~PaymentServiceInterfaceTest() override;
};

} // namespace tamomock

#endif
