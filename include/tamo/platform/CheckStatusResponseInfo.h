// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_CHECKSTATUSRESPONSEINFO_H
#define TAMO_PLATFORM_CHECKSTATUSRESPONSEINFO_H

#include <tamo/platform/DigitalGoodResponse.h>

namespace tamo {
namespace platform {

/**
 * The answer to the question whether there is a subscription.
 *
 * @since 0.1
 */
class TAMO_EXPORT CheckStatusResponseInfo : public DigitalGoodResponse
{
public:
    /** An answer without an error, and empty. */
    CheckStatusResponseInfo();

    /** An answer without an error, about a good. */
    CheckStatusResponseInfo(const QString& digitalGoodId, const QString& digitalGoodSku);

    /** An answer that says that the request about a good failed. */
    CheckStatusResponseInfo(const QString& digitalGoodId, const QString& digitalGoodSku,
                            int errorCode, const QString& errorText);

    CheckStatusResponseInfo(const CheckStatusResponseInfo& other);
    CheckStatusResponseInfo& operator=(const CheckStatusResponseInfo& other);
    ~CheckStatusResponseInfo() override;

    /** Whether the subscription exists; false where the payment system does not say. */
    bool active() const;
};

} // namespace platform
} // namespace tamo

Q_DECLARE_METATYPE(tamo::platform::CheckStatusResponseInfo)

#endif
