// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_SUBSCRIPTIONTERMSRESPONSEINFO_H
#define TAMO_PLATFORM_SUBSCRIPTIONTERMSRESPONSEINFO_H

#include <tamo/platform/PriceResponseInfo.h>

namespace tamo {
namespace platform {

/**
 * The answer to the question for a subscription's terms. price() is what the initial period costs.
 * Each text is the payment system's own, and null where it does not say.
 *
 * @since 0.1
 */
class TAMO_EXPORT SubscriptionTermsResponseInfo : public PriceResponseInfo
{
public:
    /** An answer without an error, and empty. */
    SubscriptionTermsResponseInfo();

    /** An answer without an error, about a good. */
    SubscriptionTermsResponseInfo(const QString& digitalGoodId, const QString& digitalGoodSku);

    /** An answer that says that the request about a good failed. */
    SubscriptionTermsResponseInfo(const QString& digitalGoodId, const QString& digitalGoodSku,
                                  int errorCode, const QString& errorText);

    SubscriptionTermsResponseInfo(const SubscriptionTermsResponseInfo& other);
    SubscriptionTermsResponseInfo& operator=(const SubscriptionTermsResponseInfo& other);
    ~SubscriptionTermsResponseInfo() override;

    /** How long the initial period is, such as "7" for days. */
    QString initialPeriod() const;

    /** What each later period costs, as a text to show. */
    QString renewalPrice() const;

    /** How long each later period is, such as "14" for days. */
    QString renewalPeriod() const;
};

} // namespace platform
} // namespace tamo

Q_DECLARE_METATYPE(tamo::platform::SubscriptionTermsResponseInfo)

#endif
