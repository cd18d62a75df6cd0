// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_PAYMENTSTATE_H
#define TAMOBOX_PAYMENTSTATE_H

#include "Ledger.h"

#include <string>

namespace tamobox {

/** What outlives the payment service. */
struct PaymentState
{
    Ledger ledger;
    Moment advanced = 0; ///< how far the box's clock is ahead of the machine's, in milliseconds
};

/** Writes a state as a text of JSON. */
std::string stateToText(const PaymentState& state);

/** Reads what stateToText() wrote. Throws Failure, with what is wrong, where it is anything else.
 */
PaymentState stateFromText(const std::string& text);

} // namespace tamobox

#endif
