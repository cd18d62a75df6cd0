// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ZelPaymentServiceImpl.h>

namespace tamomock {

ZelPaymentServiceImpl::~ZelPaymentServiceImpl() = default;

int ZelPaymentServiceImpl::requestEvents(int flags)
{
    return paymentservice_request_events(flags);
}

int ZelPaymentServiceImpl::getDomain()
{
    return paymentservice_get_domain();
}

int ZelPaymentServiceImpl::purchaseRequest(const char* digitalGoodId, const char* digitalGoodSku,
                                           const char* digitalGoodName, const char* metadata,
                                           const char* applicationName, const char* applicationIcon,
                                           const char* windowGroupId, int* requestId)
{
    return paymentservice_purchase_request(digitalGoodId, digitalGoodSku, digitalGoodName, metadata,
                                           applicationName, applicationIcon, windowGroupId,
                                           requestId);
}

int ZelPaymentServiceImpl::getExistingPurchasesRequest(bool allowRefresh, const char* windowGroupId,
                                                       int* requestId)
{
    return paymentservice_get_existing_purchases_request(allowRefresh, windowGroupId, requestId);
}

int ZelPaymentServiceImpl::getPrice(const char* digitalGoodId, const char* digitalGoodSku,
                                    const char* windowGroupId, int* requestId)
{
    return paymentservice_get_price(digitalGoodId, digitalGoodSku, windowGroupId, requestId);
}

int ZelPaymentServiceImpl::checkExisting(const char* digitalGoodId, const char* digitalGoodSku,
                                         const char* windowGroupId, int* requestId)
{
    return paymentservice_check_existing(digitalGoodId, digitalGoodSku, windowGroupId, requestId);
}

int ZelPaymentServiceImpl::cancelSubscription(const char* purchaseId, const char* windowGroupId,
                                              int* requestId)
{
    return paymentservice_cancel_subscription(purchaseId, windowGroupId, requestId);
}

int ZelPaymentServiceImpl::setConnectionMode(paymentservice_connection_mode_t mode)
{
    return paymentservice_set_connection_mode(mode);
}

paymentservice_response_code_t ZelPaymentServiceImpl::eventGetResponseCode(const zel_event_t* event)
{
    return paymentservice_event_get_response_code(event);
}

int ZelPaymentServiceImpl::eventGetNumberPurchases(const zel_event_t* event)
{
    return paymentservice_event_get_number_purchases(event);
}

int ZelPaymentServiceImpl::eventGetRequestId(const zel_event_t* event)
{
    return paymentservice_event_get_request_id(event);
}

int64_t ZelPaymentServiceImpl::eventGetDate(const zel_event_t* event, int index)
{
    return paymentservice_event_get_date(event, index);
}

const char* ZelPaymentServiceImpl::eventGetDigitalGoodId(const zel_event_t* event, int index)
{
    return paymentservice_event_get_digital_good_id(event, index);
}

const char* ZelPaymentServiceImpl::eventGetDigitalGoodSku(const zel_event_t* event, int index)
{
    return paymentservice_event_get_digital_good_sku(event, index);
}

const char* ZelPaymentServiceImpl::eventGetLicenseKey(const zel_event_t* event, int index)
{
    return paymentservice_event_get_license_key(event, index);
}

const char* ZelPaymentServiceImpl::eventGetMetadata(const zel_event_t* event, int index)
{
    return paymentservice_event_get_metadata(event, index);
}

const char* ZelPaymentServiceImpl::eventGetPurchaseId(const zel_event_t* event, int index)
{
    return paymentservice_event_get_purchase_id(event, index);
}

int64_t ZelPaymentServiceImpl::eventGetStartDate(const zel_event_t* event, int index)
{
    return paymentservice_event_get_start_date(event, index);
}

int64_t ZelPaymentServiceImpl::eventGetEndDate(const zel_event_t* event, int index)
{
    return paymentservice_event_get_end_date(event, index);
}

int ZelPaymentServiceImpl::eventGetPurchaseInitialPeriod(const zel_event_t* event, int index)
{
    return paymentservice_event_get_purchase_initial_period(event, index);
}

int ZelPaymentServiceImpl::eventGetItemState(const zel_event_t* event, int index)
{
    return paymentservice_event_get_item_state(event, index);
}

const char* ZelPaymentServiceImpl::eventGetTransactionId(const zel_event_t* event, int index)
{
    return paymentservice_event_get_transaction_id(event, index);
}

const char* ZelPaymentServiceImpl::eventGetPrice(const zel_event_t* event)
{
    return paymentservice_event_get_price(event);
}

const char* ZelPaymentServiceImpl::eventGetInitialPeriod(const zel_event_t* event)
{
    return paymentservice_event_get_initial_period(event);
}

const char* ZelPaymentServiceImpl::eventGetRenewalPrice(const zel_event_t* event)
{
    return paymentservice_event_get_renewal_price(event);
}

const char* ZelPaymentServiceImpl::eventGetRenewalPeriod(const zel_event_t* event)
{
    return paymentservice_event_get_renewal_period(event);
}

bool ZelPaymentServiceImpl::eventGetSubscriptionExists(const zel_event_t* event)
{
    return paymentservice_event_get_subscription_exists(event);
}

const char* ZelPaymentServiceImpl::eventGetCancelledPurchaseId(const zel_event_t* event)
{
    return paymentservice_event_get_cancelled_purchase_id(event);
}

bool ZelPaymentServiceImpl::eventGetCancelled(const zel_event_t* event)
{
    return paymentservice_event_get_cancelled(event);
}

int ZelPaymentServiceImpl::eventGetErrorId(const zel_event_t* event)
{
    return paymentservice_event_get_error_id(event);
}

const char* ZelPaymentServiceImpl::eventGetErrorText(const zel_event_t* event)
{
    return paymentservice_event_get_error_text(event);
}

} // namespace tamomock
