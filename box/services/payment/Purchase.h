// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_PURCHASE_H
#define TAMOBOX_PURCHASE_H

#include "Moment.h"
#include "SubscriptionTerms.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string>

namespace tamobox {

/** What an application has bought. It keeps what the good was like then, whatever becomes of the
 * catalogue. */
struct Purchase
{
    /** The highest number that there is, of purchases as of requests. */
    static constexpr int highestNumber = 1'000'000'000;

    int number = 0;          ///< its own, 1 to highestNumber
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
    std::string id() const { return idPrefix + std::to_string(number); }

    /** The number of the purchase that messages call so; nothing where they call none so. */
    static std::optional<int> numberIn(const std::string& id)
    {
        const std::string digits = id.substr(std::min(idPrefix.size(), id.size()));
        int number = 0;
        std::from_chars(digits.data(), digits.data() + digits.size(), number);
        return idPrefix + std::to_string(number) == id ? std::optional(number) : std::nullopt;
    }

private:
    inline static const std::string idPrefix = "purchase-";
};

} // namespace tamobox

#endif
