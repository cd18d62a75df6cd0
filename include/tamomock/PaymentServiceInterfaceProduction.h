// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_PAYMENTSERVICEINTERFACEPRODUCTION_H
#define TAMOMOCK_PAYMENTSERVICEINTERFACEPRODUCTION_H

#include <tamomock/PaymentServiceInterface.h>

namespace tamomock {

/**
 * The platform's payment system, as a back end: mode 1.
 *
 * @since 0.1
 */
class TAMO_EXPORT PaymentServiceInterfaceProduction : public PaymentServiceInterface
{
    Q_OBJECT

public:
    using PaymentServiceInterface::PaymentServiceInterface;
    ~PaymentServiceInterfaceProduction() override;
};

} // namespace tamomock

#endif
