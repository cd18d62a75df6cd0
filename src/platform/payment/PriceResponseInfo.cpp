// SPDX-License-Identifier: Apache-2.0
#include <tamo/platform/PriceResponseInfo.h>

#include "PriceResponseInfoPrivate.h"

namespace tamo {
namespace platform {

PriceResponseInfo::PriceResponseInfo() : DigitalGoodResponse(*new PriceResponseInfoPrivate) {}

PriceResponseInfo::PriceResponseInfo(const QString& digitalGoodId, const QString& digitalGoodSku)
    : DigitalGoodResponse(*new PriceResponseInfoPrivate(digitalGoodId, digitalGoodSku))
{
}

PriceResponseInfo::PriceResponseInfo(const QString& digitalGoodId, const QString& digitalGoodSku,
                                     int errorCode, const QString& errorText)
    : DigitalGoodResponse(
          *new PriceResponseInfoPrivate(digitalGoodId, digitalGoodSku, errorCode, errorText))
{
}

PriceResponseInfo::PriceResponseInfo(PriceResponseInfoPrivate& adopted)
    : DigitalGoodResponse(adopted)
{
}

PriceResponseInfo::PriceResponseInfo(const PriceResponseInfo& other) = default;

PriceResponseInfo& PriceResponseInfo::operator=(const PriceResponseInfo& other) = default;

PriceResponseInfo::~PriceResponseInfo() = default;

QString PriceResponseInfo::price() const
{
    return PriceResponseInfoPrivate::read<PriceResponseInfoPrivate>(*this).price;
}

} // namespace platform
} // namespace tamo
