// SPDX-License-Identifier: Apache-2.0
#include "Ledger.h"

#include "Subscription.h"

namespace tamobox {

void Ledger::put(const Purchase& purchase)
{
    remove(purchase.number);
    m_purchases.emplace(purchase.number, purchase);
    if (purchase.subscription)
        m_subscriptionsOf[purchase.application].insert(purchase.number);
}

void Ledger::remove(int number)
{
    const auto found = m_purchases.find(number);
    if (found == m_purchases.end())
        return;
    const auto subscriptions = m_subscriptionsOf.find(found->second.application);
    if (subscriptions != m_subscriptionsOf.end())
        subscriptions->second.erase(number);
    m_purchases.erase(found);
}

const Purchase* Ledger::find(int number) const
{
    const auto found = m_purchases.find(number);
    return found == m_purchases.end() ? nullptr : &found->second;
}

const Purchase* Ledger::findOf(const std::string& application, const std::string& id) const
{
    const std::optional<int> number = Purchase::numberIn(id);
    const Purchase* const found = number ? find(*number) : nullptr;
    return found != nullptr && found->application == application ? found : nullptr;
}

std::vector<const Purchase*> Ledger::of(const std::string& application) const
{
    std::vector<const Purchase*> purchases;
    for (const auto& [number, purchase] : m_purchases)
        if (purchase.application == application)
            purchases.push_back(&purchase);
    return purchases;
}

const Purchase* Ledger::runningOf(const std::string& application, const std::string& goodId,
                                  const std::string& sku, Moment now, bool mayBeCanceled) const
{
    const auto subscriptions = m_subscriptionsOf.find(application);
    if (subscriptions == m_subscriptionsOf.end())
        return nullptr;
    for (const int number : subscriptions->second) {
        const Purchase& purchase = m_purchases.at(number);
        const bool isMeant = (goodId.empty() ? !sku.empty() : purchase.goodId == goodId) &&
                             (sku.empty() || purchase.goodSku == sku);
        if (isMeant && isRunning(purchase, now) && (mayBeCanceled || !purchase.canceledEnd))
            return &purchase;
    }
    return nullptr;
}

} // namespace tamobox
