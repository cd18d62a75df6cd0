// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_PAYMENTANSWER_H
#define TAMOBOX_PAYMENTANSWER_H

#include "PaymentRequest.h"
#include "Purchase.h"

#include "pps/MessageWriter.h"

#include <optional>
#include <string>
#include <vector>

namespace tamobox {

/** Why the payment system refuses: `errorID` and `errorText` of an answer. */
struct PaymentError
{
    int code = 0;
    std::string text;
};

/** The payment system's own reasons; the codes above them are the catalogue's and the user's. */
namespace paymenterror {
inline const PaymentError canceled = {1, "The purchase was canceled."};
inline constexpr int declined = 2; ///< by the user, with a text of theirs
inline const PaymentError unknownGood = {3, "There is no such digital good."};
inline const PaymentError subscribedAlready = {4, "The subscription exists already."};
inline const PaymentError unknownPurchase = {5, "There is no such purchase."};
inline const PaymentError notCancelable = {6, "The purchase is no subscription that runs."};
inline constexpr int malformed = 7; ///< with what is wrong with the request
inline const PaymentError notRecorded = {8, "The purchase could not be recorded."};
inline const PaymentError tooLong = {9, "The answer would be too long."};
inline const PaymentError tooMany = {10, "Too many requests are waiting."};
inline const PaymentError noNumber = {11, "There are no more numbers for requests."};
} // namespace paymenterror

/** What the payment system answers to one request. */
struct PaymentAnswer
{
    std::optional<PaymentError> error; ///< nothing: it was carried out
    std::vector<Purchase> purchases;   ///< the receipts; of a purchase: one
    std::optional<Good> good;          ///< whose price was asked for
    bool subscriptionExists = false;
    std::string purchaseId; ///< that was canceled
};

/** The longest answer that applications read, in bytes. */
inline constexpr std::size_t longestAnswer = 65'536;

/** Adds an answer to a message that is addressed already. @param now what subscriptions are at */
void writeAnswer(MessageWriter& message, const PaymentRequest& request, const PaymentAnswer& answer,
                 Moment now);

} // namespace tamobox

#endif
