// SPDX-License-Identifier: Apache-2.0
#include "BoxPurchases.h"

#include "JsonText.h"
#include "PurchaseText.h"

#include "common/Failure.h"
#include "pps/MessageReader.h"

namespace tamobox {

BoxPurchases::BoxPurchases() : m_purchases("box/purchases"), m_clock("box/clock") {}

PaymentState BoxPurchases::load(std::string& trouble)
{
    PaymentState state;
    int unreadable = 0;
    for (const auto& [number, text] : m_purchases.all()) {
        try {
            const JsonText json(text, "a purchase");
            state.ledger.put(readPurchase(json.root()));
        } catch (const Failure&) {
            ++unreadable;
        }
    }
    if (unreadable != 0)
        trouble = std::to_string(unreadable) +
                  " purchases in /pps/box/purchases cannot be read and do not count";
    if (const auto text = m_clock.published()) {
        MessageReader clock(*text);
        if (clock.enter("@clock")) {
            const double advanced = clock.number("advanced").value_or(0);
            if (advanced >= 0 && advanced <= static_cast<double>(latestMoment))
                state.advanced = static_cast<Moment>(advanced);
        }
    }
    return state;
}

void BoxPurchases::savePurchase(const PaymentState&, const Purchase& purchase)
{
    Json json;
    writePurchase(json, purchase);
    m_purchases.put(purchase.number, json.text());
}

void BoxPurchases::saveClock(const PaymentState& state)
{
    m_clock.publish("advanced", static_cast<double>(state.advanced));
}

} // namespace tamobox
