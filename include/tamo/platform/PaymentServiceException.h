// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_PAYMENTSERVICEEXCEPTION_H
#define TAMO_PLATFORM_PAYMENTSERVICEEXCEPTION_H

#include <tamo/Exception.h>
#include <tamo/export.h>

namespace tamo {
namespace platform {

/**
 * For an application's own use, where it wants payment failures told apart by type. The library
 * itself throws a plain tamo::Exception where a payment operation fails.
 *
 * @since 0.1
 */
class TAMO_EXPORT PaymentServiceException : public Exception
{
public:
    PaymentServiceException() noexcept = default;
    PaymentServiceException(const PaymentServiceException&) noexcept = default;
    PaymentServiceException& operator=(const PaymentServiceException&) noexcept = default;
    ~PaymentServiceException() override;
};

} // namespace platform
} // namespace tamo

#endif
