// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_PRICERESPONSEINFO_H
#define TAMO_PLATFORM_PRICERESPONSEINFO_H

#include <tamo/platform/DigitalGoodResponse.h>

namespace tamo {
namespace platform {

class PriceResponseInfoPrivate;

/**
 * The answer to the question for a good's price.
 *
 * @since 0.1
 */
class TAMO_EXPORT PriceResponseInfo : public DigitalGoodResponse
{
public:
    /** An answer without an error, and empty. */
    PriceResponseInfo();

    /** An answer without an error, about a good. */
    PriceResponseInfo(const QString& digitalGoodId, const QString& digitalGoodSku);

    /** An answer that says that the request about a good failed. */
    PriceResponseInfo(const QString& digitalGoodId, const QString& digitalGoodSku, int errorCode,
                      const QString& errorText);

    PriceResponseInfo(const PriceResponseInfo& other);
    PriceResponseInfo& operator=(const PriceResponseInfo& other);
    ~PriceResponseInfo() override;

    /** The price as a text to show, such as "$1.99"; null where the payment system does not say. */
    QString price() const;

protected:
    /** As PaymentServiceResponse's. */
    explicit PriceResponseInfo(PriceResponseInfoPrivate& adopted);
};

} // namespace platform
} // namespace tamo

Q_DECLARE_METATYPE(tamo::platform::PriceResponseInfo)

#endif
