// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_DIALOGANSWER_H
#define TAMOBOX_DIALOGANSWER_H

#include "services/payment/PaymentRequest.h"

#include "pps/MessageWriter.h"

#include <string>

namespace tamobox {

/** Adds the answer that a button of the purchase dialog was pressed. @param now of the purchase */
void writeDialogChoice(MessageWriter& message, const PaymentRequest& request, bool buys,
                       Moment now);

/** Adds the answer that the dialog failed. @param text at most 256 bytes of it are told */
void writeDialogFailure(MessageWriter& message, const std::string& id, std::string text);

} // namespace tamobox

#endif
