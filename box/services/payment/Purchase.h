// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_PURCHASE_H
#define TAMOBOX_PURCHASE_H

#include "Moment.h"
#include "SubscriptionTerms.h"

#include <optional>
#include <string>

namespace tamobox {

/** What an application has bought. It keeps what the good was like then, whatever becomes of the
 * catalogue. */
struct Purchase
{
    int number = 0;          ///< its own, above 0
    std::string application; ///< that it belongs to: the id that bought it
    std::string goodId;
    std::string goodSku;
    std::string licenseKey;
    std::string metadata; ///< as the application gave it
    std::string price;    ///< as it was shown
    Moment date = 0;
    std::optional<SubscriptionTerms> subscription;
    std::optional<Moment> canceledEnd; ///< of a canceled subscription: when it ends

    /** How messages call it. */
    std::string id() const { return "purchase-" + std::to_string(number); }
};

} // namespace tamobox

#endif
