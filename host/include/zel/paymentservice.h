/* SPDX-License-Identifier: Apache-2.0 */
/**
 * @file
 * The payment service: purchases and subscriptions of digital goods.
 *
 * What is in an event is asked for by its getters; texts are zero-terminated UTF-8 and valid as
 * long as the event; an event of another domain, or one without that part, gives the value that
 * is said to be "none", with `errno` EINVAL. Where a call fails nothing is written through its
 * arguments, unless it says otherwise. A request returns 0 as soon as the service has it; its
 * answer is an event with its id. Requests fail with ENOENT where the service is not there,
 * EINVAL for NULL and for a text that is not UTF-8. Purchases in an answer are counted from 0;
 * an index beyond them gives "none". On a platform without the service every function that can
 * fail fails with ENOTSUP, getters of events included; paymentservice_get_domain() never fails.
 */
#ifndef ZEL_PAYMENTSERVICE_H
#define ZEL_PAYMENTSERVICE_H

#include <zel/export.h>
#include <zel/zel.h>

#include <stdbool.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/** The codes of the payment service's events: the answers to the requests. */
enum {
    PAYMENTSERVICE_PURCHASE_RESPONSE = 1,               /**< with one purchase */
    PAYMENTSERVICE_GET_EXISTING_PURCHASES_RESPONSE = 2, /**< with any number of purchases */
    PAYMENTSERVICE_GET_PRICE_RESPONSE = 3,              /**< with price and subscription terms */
    PAYMENTSERVICE_CHECK_EXISTING_RESPONSE = 4,         /**< with whether a subscription exists */
    PAYMENTSERVICE_CANCEL_SUBSCRIPTION_RESPONSE = 5     /**< with the purchase, and whether it was
                                                             cancelled */
};

/** What came of a request. */
typedef enum {
    PAYMENTSERVICE_NO_RESPONSE = -1,
    PAYMENTSERVICE_SUCCESS_RESPONSE = 0,
    PAYMENTSERVICE_FAILURE_RESPONSE = 1 /**< with error id and error text */
} paymentservice_response_code_t;

/** Whether money is spent. */
typedef enum {
    PAYMENTSERVICE_TEST_MODE = 0, /**< answers are simulated */
    PAYMENTSERVICE_PRODUCTION_MODE = 1
} paymentservice_connection_mode_t;

/**
 * Asks for the events of the payment service, for the calling thread's active channel. Asking
 * again for the same channel changes nothing. The events stop with the channel.
 *
 * @param flags 0
 *
 * Errors: as zel_channel_create(); ENOENT (the service is not there).
 */
ZEL_EXPORT int paymentservice_request_events(int flags);

/** The domain of the payment service; the same in every process and thread. Never fails. */
ZEL_EXPORT int paymentservice_get_domain(void);

/**
 * Asks for a purchase. The user is asked to confirm it.
 *
 * @param digital_good_id the good's number; may be empty where there is a SKU
 * @param digital_good_sku the good's SKU; may be empty where there is a number
 * @param digital_good_name as it is shown to the user
 * @param metadata the application's own, which the purchase keeps
 * @param application_name as it is shown to the user
 * @param application_icon a URL; may be empty
 * @param window_group_id the window group over which the user is asked
 * @param request_id the request's id, which its answer carries
 */
ZEL_EXPORT int paymentservice_purchase_request(const char* digital_good_id,
                                               const char* digital_good_sku,
                                               const char* digital_good_name, const char* metadata,
                                               const char* application_name,
                                               const char* application_icon,
                                               const char* window_group_id, int* request_id);

/**
 * Asks for the purchases that were made before. Arguments as for
 * paymentservice_purchase_request().
 *
 * @param allow_refresh whether the server may be asked; otherwise, what the device knows
 */
ZEL_EXPORT int paymentservice_get_existing_purchases_request(bool allow_refresh,
                                                             const char* window_group_id,
                                                             int* request_id);

/**
 * Asks for the price of a good, and for its terms if it is a subscription. Arguments as for
 * paymentservice_purchase_request().
 */
ZEL_EXPORT int paymentservice_get_price(const char* digital_good_id, const char* digital_good_sku,
                                        const char* window_group_id, int* request_id);

/** Asks whether a subscription exists. Arguments as for paymentservice_purchase_request(). */
ZEL_EXPORT int paymentservice_check_existing(const char* digital_good_id,
                                             const char* digital_good_sku,
                                             const char* window_group_id, int* request_id);

/**
 * Cancels a subscription. Arguments as for paymentservice_purchase_request().
 *
 * @param purchase_id of the subscription's purchase
 */
ZEL_EXPORT int paymentservice_cancel_subscription(const char* purchase_id,
                                                  const char* window_group_id, int* request_id);

/**
 * Sets whether money is spent by later requests of the process. PAYMENTSERVICE_PRODUCTION_MODE at
 * first.
 */
ZEL_EXPORT int paymentservice_set_connection_mode(paymentservice_connection_mode_t mode);

/** What came of the request. None: PAYMENTSERVICE_NO_RESPONSE. */
ZEL_EXPORT paymentservice_response_code_t
paymentservice_event_get_response_code(const zel_event_t* event);

/** How many purchases the answer holds. None: -1. */
ZEL_EXPORT int paymentservice_event_get_number_purchases(const zel_event_t* event);

/** The id of the request. None: -1. */
ZEL_EXPORT int paymentservice_event_get_request_id(const zel_event_t* event);

/** When a purchase was made, in milliseconds since 1970-01-01 UTC. None: -1. */
ZEL_EXPORT int64_t paymentservice_event_get_date(const zel_event_t* event, int index);

/** The number of the good. None: NULL. */
ZEL_EXPORT const char* paymentservice_event_get_digital_good_id(const zel_event_t* event,
                                                                int index);

/** The SKU of the good. None: NULL. */
ZEL_EXPORT const char* paymentservice_event_get_digital_good_sku(const zel_event_t* event,
                                                                 int index);

/** The licence key, as the shop gives it. None: NULL. */
ZEL_EXPORT const char* paymentservice_event_get_license_key(const zel_event_t* event, int index);

/** What the application gave to the purchase. None: NULL. */
ZEL_EXPORT const char* paymentservice_event_get_metadata(const zel_event_t* event, int index);

/** The id of the purchase. None: NULL. */
ZEL_EXPORT const char* paymentservice_event_get_purchase_id(const zel_event_t* event, int index);

/** When the subscription began, in milliseconds since 1970-01-01 UTC. None: -1. */
ZEL_EXPORT int64_t paymentservice_event_get_start_date(const zel_event_t* event, int index);

/** When the subscription ends, in milliseconds since 1970-01-01 UTC. None: -1. */
ZEL_EXPORT int64_t paymentservice_event_get_end_date(const zel_event_t* event, int index);

/** The subscription's initial period in days. None: -1. */
ZEL_EXPORT int paymentservice_event_get_purchase_initial_period(const zel_event_t* event,
                                                                int index);

/** The state of the good; 0 and 5 are no subscription. None: -1. */
ZEL_EXPORT int paymentservice_event_get_item_state(const zel_event_t* event, int index);

/** The id of the transaction. None: NULL. */
ZEL_EXPORT const char* paymentservice_event_get_transaction_id(const zel_event_t* event, int index);

/** The price, as it is shown to a user. None: NULL. */
ZEL_EXPORT const char* paymentservice_event_get_price(const zel_event_t* event);

/** How long the initial period of a subscription is, in days. None: NULL. */
ZEL_EXPORT const char* paymentservice_event_get_initial_period(const zel_event_t* event);

/** What the renewal of a subscription costs, as it is shown to a user. None: NULL. */
ZEL_EXPORT const char* paymentservice_event_get_renewal_price(const zel_event_t* event);

/** For how long a subscription is renewed, in days. None: NULL. */
ZEL_EXPORT const char* paymentservice_event_get_renewal_period(const zel_event_t* event);

/** Whether the subscription exists. None: false. */
ZEL_EXPORT bool paymentservice_event_get_subscription_exists(const zel_event_t* event);

/** The id of the purchase that was to be cancelled. None: NULL. */
ZEL_EXPORT const char* paymentservice_event_get_cancelled_purchase_id(const zel_event_t* event);

/** Whether it was cancelled. None: false. */
ZEL_EXPORT bool paymentservice_event_get_cancelled(const zel_event_t* event);

/** What went wrong, as a number of the service. None: -1. */
ZEL_EXPORT int paymentservice_event_get_error_id(const zel_event_t* event);

/** What went wrong, for a person to read. None: NULL. */
ZEL_EXPORT const char* paymentservice_event_get_error_text(const zel_event_t* event);

#ifdef __cplusplus
}
#endif

#endif
