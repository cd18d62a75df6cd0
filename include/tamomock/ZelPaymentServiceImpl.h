// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_ZELPAYMENTSERVICEIMPL_H
#define TAMOMOCK_ZELPAYMENTSERVICEIMPL_H

#include <tamo/export.h>
#include <tamomock/ZelPaymentService.h>

namespace tamomock {

/**
 * The default ZelPaymentService: each operation calls the function that it is named after.
 *
 * @since 0.1
 */
class TAMO_EXPORT ZelPaymentServiceImpl : public ZelPaymentService
{
public:
    ~ZelPaymentServiceImpl() override;

    int requestEvents(int flags) override;
    int getDomain() override;
    int purchaseRequest(const char* digitalGoodId, const char* digitalGoodSku,
                        const char* digitalGoodName, const char* metadata,
                        const char* applicationName, const char* applicationIcon,
                        const char* windowGroupId, int* requestId) override;
    int getExistingPurchasesRequest(bool allowRefresh, const char* windowGroupId,
                                    int* requestId) override;
    int getPrice(const char* digitalGoodId, const char* digitalGoodSku, const char* windowGroupId,
                 int* requestId) override;
    int checkExisting(const char* digitalGoodId, const char* digitalGoodSku,
                      const char* windowGroupId, int* requestId) override;
    int cancelSubscription(const char* purchaseId, const char* windowGroupId,
                           int* requestId) override;
    int setConnectionMode(paymentservice_connection_mode_t mode) override;
    paymentservice_response_code_t eventGetResponseCode(const zel_event_t* event) override;
    int eventGetNumberPurchases(const zel_event_t* event) override;
    int eventGetRequestId(const zel_event_t* event) override;
    int64_t eventGetDate(const zel_event_t* event, int index) override;
    const char* eventGetDigitalGoodId(const zel_event_t* event, int index) override;
    const char* eventGetDigitalGoodSku(const zel_event_t* event, int index) override;
    const char* eventGetLicenseKey(const zel_event_t* event, int index) override;
    const char* eventGetMetadata(const zel_event_t* event, int index) override;
    const char* eventGetPurchaseId(const zel_event_t* event, int index) override;
    int64_t eventGetStartDate(const zel_event_t* event, int index) override;
    int64_t eventGetEndDate(const zel_event_t* event, int index) override;
    int eventGetPurchaseInitialPeriod(const zel_event_t* event, int index) override;
    int eventGetItemState(const zel_event_t* event, int index) override;
    const char* eventGetTransactionId(const zel_event_t* event, int index) override;
    const char* eventGetPrice(const zel_event_t* event) override;
    const char* eventGetInitialPeriod(const zel_event_t* event) override;
    const char* eventGetRenewalPrice(const zel_event_t* event) override;
    const char* eventGetRenewalPeriod(const zel_event_t* event) override;
    bool eventGetSubscriptionExists(const zel_event_t* event) override;
    const char* eventGetCancelledPurchaseId(const zel_event_t* event) override;
    bool eventGetCancelled(const zel_event_t* event) override;
    int eventGetErrorId(const zel_event_t* event) override;
    const char* eventGetErrorText(const zel_event_t* event) override;
};

} // namespace tamomock

#endif
