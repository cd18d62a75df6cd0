// SPDX-License-Identifier: Apache-2.0
#include "Subscription.h"

#include <algorithm>

namespace tamobox {

Standing standingAt(const Purchase& purchase, Moment now)
{
    if (!purchase.subscription)
        return {};
    if (purchase.canceledEnd)
        return {now < *purchase.canceledEnd ? ItemState::Canceled : ItemState::Ended,
                *purchase.canceledEnd};
    const SubscriptionTerms& terms = *purchase.subscription;
    const Moment initialEnd = purchase.date + terms.initialPeriod * millisecondsOfADay;
    if (now < initialEnd)
        return {ItemState::Initial, initialEnd};
    if (terms.renewalPeriod == 0)
        return {ItemState::Ended, initialEnd};
    const Moment period = terms.renewalPeriod * millisecondsOfADay;
    return {ItemState::Renewed, initialEnd + ((now - initialEnd) / period + 1) * period};
}

bool isRunning(const Purchase& purchase, Moment now)
{
    const ItemState state = standingAt(purchase, now).state;
    return state != ItemState::Owned && state != ItemState::Ended;
}

} // namespace tamobox
