// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_SUBSCRIPTIONTERMS_H
#define TAMOBOX_SUBSCRIPTIONTERMS_H

#include <string>

namespace tamobox {

/** The longest period of a subscription, in days. */
inline constexpr int longestPeriod = 36'500;

/** For how long and for how much a subscription runs. */
struct SubscriptionTerms
{
    int initialPeriod = 0;    ///< days, 1 to longestPeriod
    int renewalPeriod = 0;    ///< days, to longestPeriod; 0: it ends with the initial period
    std::string renewalPrice; ///< as it is shown; empty where it is not renewed
};

} // namespace tamobox

#endif
