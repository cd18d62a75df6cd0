// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_DIGITALGOODRESPONSE_H
#define TAMO_PLATFORM_DIGITALGOODRESPONSE_H

#include <tamo/platform/PaymentServiceResponse.h>

namespace tamo {
namespace platform {

class DigitalGoodResponsePrivate;

/**
 * An answer about one digital good.
 *
 * @since 0.1
 */
class TAMO_EXPORT DigitalGoodResponse : public PaymentServiceResponse
{
public:
    DigitalGoodResponse(const DigitalGoodResponse& other);
    DigitalGoodResponse& operator=(const DigitalGoodResponse& other);
    ~DigitalGoodResponse() override;

    /** The good's id, as the request named it; null where the answer does not say. */
    QString digitalGoodId() const;

    /** The good's SKU, as the request named it; null where the answer does not say. */
    QString digitalGoodSku() const;

protected:
    /** As PaymentServiceResponse's. */
    explicit DigitalGoodResponse(DigitalGoodResponsePrivate& adopted);
};

} // namespace platform
} // namespace tamo

#endif
