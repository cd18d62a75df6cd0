// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_PAYMENTREPORT_H
#define TAMOBOX_PAYMENTREPORT_H

#include "PaymentRequest.h"
#include "Purchase.h"

#include "pps/MessageWriter.h"

namespace tamobox {

// What `tamo-box payment` is told, attribute by attribute.

/** A request that waits. */
void writeRequest(MessageWriter& message, const PaymentRequest& request);

/** What was bought. @param now what a subscription's state is at */
void writePurchase(MessageWriter& message, const Purchase& purchase, Moment now);

} // namespace tamobox

#endif
