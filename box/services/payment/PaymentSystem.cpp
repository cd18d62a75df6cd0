// SPDX-License-Identifier: Apache-2.0
#include "PaymentSystem.h"

#include "Subscription.h"

namespace tamobox {

std::optional<PaymentError> PaymentSystem::obstacleTo(const PaymentRequest& request,
                                                      Moment now) const
{
    const Ledger& ledger = m_state.ledger;
    switch (request.operation) {
    case Operation::Purchase:
        if (!request.good)
            return paymenterror::unknownGood;
        if (ledger.runningOf(request.applicationId, request.good->id, {}, now, false) != nullptr)
            return paymenterror::subscribedAlready;
        break;
    case Operation::Price:
        if (!request.good)
            return paymenterror::unknownGood;
        break;
    case Operation::CheckStatus:
        // What was bought stays bought when the catalogue no longer has it.
        if (!request.good && subscriptionFor(request, now) == nullptr)
            return paymenterror::unknownGood;
        break;
    case Operation::CancelSubscription: {
        const Purchase* const purchase = ledger.findOf(request.applicationId, request.purchaseId);
        if (purchase == nullptr)
            return paymenterror::unknownPurchase;
        if (!isRunning(*purchase, now))
            return paymenterror::notCancelable;
        break;
    }
    case Operation::ExistingPurchases:
        break;
    }
    return std::nullopt;
}

PaymentAnswer PaymentSystem::carryOut(const PaymentRequest& request, Moment now)
{
    if (request.operation == Operation::Purchase)
        if (const Purchase* const done = m_state.ledger.find(request.number))
            return {{}, {*done}, {}, false, {}};
    PaymentAnswer answer;
    answer.error = obstacleTo(request, now);
    if (answer.error)
        return answer;
    switch (request.operation) {
    case Operation::Purchase:
        return buy(request, now);
    case Operation::ExistingPurchases:
        for (const Purchase* const purchase : m_state.ledger.of(request.applicationId))
            answer.purchases.push_back(*purchase);
        break;
    case Operation::Price:
        answer.good = request.good;
        break;
    case Operation::CheckStatus:
        answer.subscriptionExists = subscriptionFor(request, now) != nullptr;
        break;
    case Operation::CancelSubscription:
        return cancel(request, now);
    }
    return answer;
}

void PaymentSystem::advanceClock(Moment by)
{
    m_state.advanced += by;
    try {
        m_store.saveClock(m_state);
    } catch (...) {
        m_state.advanced -= by;
        throw;
    }
}

// A good of the catalogue is meant by its id: its SKU may be another than when it was bought.
const Purchase* PaymentSystem::subscriptionFor(const PaymentRequest& request, Moment now) const
{
    return request.good
               ? m_state.ledger.runningOf(request.applicationId, request.good->id, {}, now, true)
               : m_state.ledger.runningOf(request.applicationId, request.goodId, request.goodSku,
                                          now, true);
}

PaymentAnswer PaymentSystem::buy(const PaymentRequest& request, Moment now)
{
    const Good& good = *request.good;
    Purchase purchase;
    purchase.number = request.number;
    purchase.application = request.applicationId;
    purchase.goodId = good.id;
    purchase.goodSku = good.sku;
    purchase.licenseKey = good.licenseKey;
    purchase.metadata = request.metadata;
    purchase.price = good.price;
    purchase.date = now;
    purchase.subscription = good.subscription;
    save(purchase);
    return {{}, {purchase}, {}, false, {}};
}

// A subscription runs to the end of what has been paid for. To cancel it again changes nothing.
PaymentAnswer PaymentSystem::cancel(const PaymentRequest& request, Moment now)
{
    Purchase purchase = *m_state.ledger.findOf(request.applicationId, request.purchaseId);
    if (!purchase.canceledEnd) {
        purchase.canceledEnd = standingAt(purchase, now).end;
        save(purchase);
    }
    PaymentAnswer answer;
    answer.purchaseId = purchase.id();
    return answer;
}

void PaymentSystem::save(const Purchase& purchase)
{
    const Purchase* const found = m_state.ledger.find(purchase.number);
    const std::optional<Purchase> before = found ? std::optional(*found) : std::nullopt;
    m_state.ledger.put(purchase);
    try {
        m_store.savePurchase(m_state, purchase);
    } catch (...) {
        before ? m_state.ledger.put(*before) : m_state.ledger.remove(purchase.number);
        throw;
    }
}

} // namespace tamobox
