// SPDX-License-Identifier: Apache-2.0
#include <tamo/platform/DigitalGoodResponse.h>

#include "DigitalGoodResponsePrivate.h"

namespace tamo {
namespace platform {

DigitalGoodResponse::DigitalGoodResponse(DigitalGoodResponsePrivate& adopted)
    : PaymentServiceResponse(adopted)
{
}

DigitalGoodResponse::DigitalGoodResponse(const DigitalGoodResponse& other) = default;

DigitalGoodResponse& DigitalGoodResponse::operator=(const DigitalGoodResponse& other) = default;

DigitalGoodResponse::~DigitalGoodResponse() = default;

QString DigitalGoodResponse::digitalGoodId() const
{
    return DigitalGoodResponsePrivate::read<DigitalGoodResponsePrivate>(*this).digitalGoodId;
}

QString DigitalGoodResponse::digitalGoodSku() const
{
    return DigitalGoodResponsePrivate::read<DigitalGoodResponsePrivate>(*this).digitalGoodSku;
}

} // namespace platform
} // namespace tamo
