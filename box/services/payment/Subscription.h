// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_SUBSCRIPTION_H
#define TAMOBOX_SUBSCRIPTION_H

#include "Purchase.h"

namespace tamobox {

/** `itemState` of a receipt. */
enum class ItemState {
    Owned = 0,    ///< bought for good, no subscription
    Initial = 1,  ///< a subscription in its initial period
    Renewed = 2,  ///< a subscription that has been renewed
    Canceled = 3, ///< a canceled subscription that runs to the end of its period
    Ended = 4     ///< a subscription that has ended
};

/** What a purchase is at a moment. */
struct Standing
{
    ItemState state = ItemState::Owned;
    Moment end = 0; ///< of a subscription: when its present period ends, or its last one ended
};

/** What a purchase is at a moment. A moment before the purchase is taken for that of the purchase.
 */
Standing standingAt(const Purchase& purchase, Moment now);

/** Whether a purchase is a subscription that runs, canceled or not. */
bool isRunning(const Purchase& purchase, Moment now);

} // namespace tamobox

#endif
