// SPDX-License-Identifier: Apache-2.0
#include "Unsupported.h"

#include "core/Domain.h"

#include <zel/paymentservice.h>

int paymentservice_get_domain()
{
    return zel::number(zel::Domain::PaymentService);
}

ZEL_UNSUPPORTED(-1, int paymentservice_request_events(int))
ZEL_UNSUPPORTED(-1, int paymentservice_purchase_request(const char*, const char*, const char*,
                                                        const char*, const char*, const char*,
                                                        const char*, int*))
ZEL_UNSUPPORTED(-1, int paymentservice_get_existing_purchases_request(bool, const char*, int*))
ZEL_UNSUPPORTED(-1, int paymentservice_get_price(const char*, const char*, const char*, int*))
ZEL_UNSUPPORTED(-1, int paymentservice_check_existing(const char*, const char*, const char*, int*))
ZEL_UNSUPPORTED(-1, int paymentservice_cancel_subscription(const char*, const char*, int*))
ZEL_UNSUPPORTED(-1, int paymentservice_set_connection_mode(paymentservice_connection_mode_t))
ZEL_UNSUPPORTED(
    PAYMENTSERVICE_NO_RESPONSE,
    paymentservice_response_code_t paymentservice_event_get_response_code(const zel_event_t*))
ZEL_UNSUPPORTED(-1, int paymentservice_event_get_number_purchases(const zel_event_t*))
ZEL_UNSUPPORTED(-1, int paymentservice_event_get_request_id(const zel_event_t*))
ZEL_UNSUPPORTED(-1, int64_t paymentservice_event_get_date(const zel_event_t*, int))
ZEL_UNSUPPORTED(nullptr,
                const char* paymentservice_event_get_digital_good_id(const zel_event_t*, int))
ZEL_UNSUPPORTED(nullptr,
                const char* paymentservice_event_get_digital_good_sku(const zel_event_t*, int))
ZEL_UNSUPPORTED(nullptr, const char* paymentservice_event_get_license_key(const zel_event_t*, int))
ZEL_UNSUPPORTED(nullptr, const char* paymentservice_event_get_metadata(const zel_event_t*, int))
ZEL_UNSUPPORTED(nullptr, const char* paymentservice_event_get_purchase_id(const zel_event_t*, int))
ZEL_UNSUPPORTED(-1, int64_t paymentservice_event_get_start_date(const zel_event_t*, int))
ZEL_UNSUPPORTED(-1, int64_t paymentservice_event_get_end_date(const zel_event_t*, int))
ZEL_UNSUPPORTED(-1, int paymentservice_event_get_purchase_initial_period(const zel_event_t*, int))
ZEL_UNSUPPORTED(-1, int paymentservice_event_get_item_state(const zel_event_t*, int))
ZEL_UNSUPPORTED(nullptr,
                const char* paymentservice_event_get_transaction_id(const zel_event_t*, int))
ZEL_UNSUPPORTED(nullptr, const char* paymentservice_event_get_price(const zel_event_t*))
ZEL_UNSUPPORTED(nullptr, const char* paymentservice_event_get_initial_period(const zel_event_t*))
ZEL_UNSUPPORTED(nullptr, const char* paymentservice_event_get_renewal_price(const zel_event_t*))
ZEL_UNSUPPORTED(nullptr, const char* paymentservice_event_get_renewal_period(const zel_event_t*))
ZEL_UNSUPPORTED(false, bool paymentservice_event_get_subscription_exists(const zel_event_t*))
ZEL_UNSUPPORTED(nullptr,
                const char* paymentservice_event_get_cancelled_purchase_id(const zel_event_t*))
ZEL_UNSUPPORTED(false, bool paymentservice_event_get_cancelled(const zel_event_t*))
ZEL_UNSUPPORTED(-1, int paymentservice_event_get_error_id(const zel_event_t*))
ZEL_UNSUPPORTED(nullptr, const char* paymentservice_event_get_error_text(const zel_event_t*))
