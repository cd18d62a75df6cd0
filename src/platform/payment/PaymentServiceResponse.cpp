// SPDX-License-Identifier: Apache-2.0
#include <tamo/platform/PaymentServiceResponse.h>

#include "PaymentServiceResponsePrivate.h"

namespace tamo {
namespace platform {

PaymentServiceResponse::PaymentServiceResponse()
    : PaymentServiceResponse(*new PaymentServiceResponsePrivate)
{
}

PaymentServiceResponse::PaymentServiceResponse(int errorCode, const QString& errorText)
    : PaymentServiceResponse(*new PaymentServiceResponsePrivate(errorCode, errorText))
{
}

PaymentServiceResponse::PaymentServiceResponse(PaymentServiceResponsePrivate& adopted) : d(&adopted)
{
}

PaymentServiceResponse::PaymentServiceResponse(const PaymentServiceResponse& other) = default;

PaymentServiceResponse&
PaymentServiceResponse::operator=(const PaymentServiceResponse& other) = default;

PaymentServiceResponse::~PaymentServiceResponse() = default;

bool PaymentServiceResponse::error() const
{
    return d->error;
}

int PaymentServiceResponse::errorCode() const
{
    return d->errorCode;
}

QString PaymentServiceResponse::errorText() const
{
    return d->errorText;
}

} // namespace platform
} // namespace tamo
