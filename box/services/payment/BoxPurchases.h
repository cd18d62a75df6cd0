// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_BOXPURCHASES_H
#define TAMOBOX_BOXPURCHASES_H

#include "PurchaseStore.h"
#include "RecordPages.h"

namespace tamobox {

/** The state of a box that is not kept: in objects of its own `/pps`. */
class BoxPurchases : public PurchaseStore
{
public:
    BoxPurchases();

    PaymentState load(std::string& trouble) override;
    void savePurchase(const PaymentState& state, const Purchase& purchase) override;
    void saveClock(const PaymentState& state) override;

private:
    RecordPages m_purchases;
    Publisher m_clock;
};

} // namespace tamobox

#endif
