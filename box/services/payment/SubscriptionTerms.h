// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_SUBSCRIPTIONTERMS_H
#define TAMOBOX_SUBSCRIPTIONTERMS_H

#include <string>

namespace tamobox {

/** For how long and for how much a subscription runs. */
struct SubscriptionTerms
{
    int initialPeriod = 0;    ///< days, at least 1
    int renewalPeriod = 0;    ///< days; 0: it ends with the initial period
    std::string renewalPrice; ///< as it is shown; empty where it is not renewed
};

} // namespace tamobox

#endif
