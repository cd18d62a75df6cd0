// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_DIALOGWORDS_H
#define TAMOBOX_DIALOGWORDS_H

namespace tamobox {

/** What an answer says in `errorSelection` where the dialog was answered, with whatever button. */
inline constexpr const char* dialogSucceeded = "paymentSuccess";

/** The labels of the purchase dialog's buttons. */
inline constexpr const char* buyLabel = "confirmpurchase.buynow";
inline constexpr const char* cancelLabel = "confirmpurchase.cancel";

} // namespace tamobox

#endif
