// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_ZELPAYMENTSERVICE_H
#define TAMOMOCK_ZELPAYMENTSERVICE_H

#include <tamo/export.h>
#include <tamomock/ZelEventProvider.h>

#include <zel/paymentservice.h>

namespace tamomock {

/**
 * The payment service, as the library calls it: one operation for each function of
 * `<zel/paymentservice.h>`, named after it without `paymentservice_`, after those of
 * ZelEventProvider. What a function takes, returns and does is said there; an operation of a
 * substitute keeps to it as far as the code under test looks.
 *
 * @since 0.1
 */
class TAMO_EXPORT ZelPaymentService : public ZelEventProvider
{
public:
    ~ZelPaymentService() override;

    virtual int purchaseRequest(const char* digitalGoodId, const char* digitalGoodSku,
                                const char* digitalGoodName, const char* metadata,
                                const char* applicationName, const char* applicationIcon,
                                const char* windowGroupId, int* requestId) = 0;
    virtual int getExistingPurchasesRequest(bool allowRefresh, const char* windowGroupId,
                                            int* requestId) = 0;
    virtual int getPrice(const char* digitalGoodId, const char* digitalGoodSku,
                         const char* windowGroupId, int* requestId) = 0;
    virtual int checkExisting(const char* digitalGoodId, const char* digitalGoodSku,
                              const char* windowGroupId, int* requestId) = 0;
    virtual int cancelSubscription(const char* purchaseId, const char* windowGroupId,
                                   int* requestId) = 0;
    virtual int setConnectionMode(paymentservice_connection_mode_t mode) = 0;
    virtual paymentservice_response_code_t eventGetResponseCode(const zel_event_t* event) = 0;
    virtual int eventGetNumberPurchases(const zel_event_t* event) = 0;
    virtual int eventGetRequestId(const zel_event_t* event) = 0;
    virtual int64_t eventGetDate(const zel_event_t* event, int index) = 0;
    virtual const char* eventGetDigitalGoodId(const zel_event_t* event, int index) = 0;
    virtual const char* eventGetDigitalGoodSku(const zel_event_t* event, int index) = 0;
    virtual const char* eventGetLicenseKey(const zel_event_t* event, int index) = 0;
    virtual const char* eventGetMetadata(const zel_event_t* event, int index) = 0;
    virtual const char* eventGetPurchaseId(const zel_event_t* event, int index) = 0;
    virtual int64_t eventGetStartDate(const zel_event_t* event, int index) = 0;
    virtual int64_t eventGetEndDate(const zel_event_t* event, int index) = 0;
    virtual int eventGetPurchaseInitialPeriod(const zel_event_t* event, int index) = 0;
    virtual int eventGetItemState(const zel_event_t* event, int index) = 0;
    virtual const char* eventGetTransactionId(const zel_event_t* event, int index) = 0;
    virtual const char* eventGetPrice(const zel_event_t* event) = 0;
    virtual const char* eventGetInitialPeriod(const zel_event_t* event) = 0;
    virtual const char* eventGetRenewalPrice(const zel_event_t* event) = 0;
    virtual const char* eventGetRenewalPeriod(const zel_event_t* event) = 0;
    virtual bool eventGetSubscriptionExists(const zel_event_t* event) = 0;
    virtual const char* eventGetCancelledPurchaseId(const zel_event_t* event) = 0;
    virtual bool eventGetCancelled(const zel_event_t* event) = 0;
    virtual int eventGetErrorId(const zel_event_t* event) = 0;
    virtual const char* eventGetErrorText(const zel_event_t* event) = 0;
};

} // namespace tamomock

#endif
