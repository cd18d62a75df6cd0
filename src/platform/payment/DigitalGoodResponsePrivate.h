// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_PAYMENT_DIGITALGOODRESPONSEPRIVATE_H
#define TAMO_PLATFORM_PAYMENT_DIGITALGOODRESPONSEPRIVATE_H

#include "PaymentServiceResponsePrivate.h"

namespace tamo {
namespace platform {

class DigitalGoodResponsePrivate : public PaymentServiceResponsePrivate
{
public:
    DigitalGoodResponsePrivate() = default;
    DigitalGoodResponsePrivate(const QString& id, const QString& sku)
        : digitalGoodId(id), digitalGoodSku(sku)
    {
    }
    DigitalGoodResponsePrivate(const QString& id, const QString& sku, int code, const QString& text)
        : PaymentServiceResponsePrivate(code, text), digitalGoodId(id), digitalGoodSku(sku)
    {
    }

    QString digitalGoodId;
    QString digitalGoodSku;
};

} // namespace platform
} // namespace tamo

#endif
