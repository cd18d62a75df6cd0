// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_DIALOGREQUEST_H
#define TAMOBOX_DIALOGREQUEST_H

#include "services/payment/PaymentRequest.h"

namespace tamobox {

/**
 * Reads `dat` of a request to show the purchase dialog, in which the reader stands.
 *
 * @throws Failure where it is another dialog, is not for testing, or lacks what would be bought
 */
void readDialogRequest(MessageReader& dat, PaymentRequest& request);

} // namespace tamobox

#endif
