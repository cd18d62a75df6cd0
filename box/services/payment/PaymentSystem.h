// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_PAYMENTSYSTEM_H
#define TAMOBOX_PAYMENTSYSTEM_H

#include "PaymentAnswer.h"
#include "PurchaseStore.h"

namespace tamobox {

/** The payment system itself: carries requests out on what it has recorded. Knows no messages. */
class PaymentSystem
{
public:
    /** @param store must outlive the object; @param state what was loaded from it */
    PaymentSystem(PurchaseStore& store, PaymentState state)
        : m_store(store), m_state(std::move(state))
    {
    }

    const PaymentState& state() const { return m_state; }

    /** Why a request cannot be carried out, whoever approves of it; nothing where it can be. */
    std::optional<PaymentError> obstacleTo(const PaymentRequest& request, Moment now) const;

    /**
     * Carries a request out. What it changes is saved when it returns. One that has been carried
     * out already, as its number says, is answered once more.
     *
     * @throws Failure where it could not be saved, and nothing has changed
     */
    PaymentAnswer carryOut(const PaymentRequest& request, Moment now);

    /** Moves the box's clock forward. Throws Failure where that could not be saved. */
    void advanceClock(Moment by);

private:
    const Purchase* subscriptionFor(const PaymentRequest& request, Moment now) const;
    PaymentAnswer buy(const PaymentRequest& request, Moment now);
    PaymentAnswer cancel(const PaymentRequest& request, Moment now);
    void save(const Purchase& purchase);

    PurchaseStore& m_store;
    PaymentState m_state;
};

} // namespace tamobox

#endif
