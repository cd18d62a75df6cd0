// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_LEDGER_H
#define TAMOBOX_LEDGER_H

#include "Purchase.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace tamobox {

/** What all applications have bought, in the order of the numbers. */
class Ledger
{
public:
    const std::map<int, Purchase>& all() const { return m_purchases; }

    /** Adds a purchase, or changes the one that has its number. */
    void put(const Purchase& purchase);

    /** Takes a purchase out again. */
    void remove(int number);

    /** nullptr where there is none. */
    const Purchase* find(int number) const;

    /** The purchase that messages call so, where it belongs to the application; else nullptr. */
    const Purchase* findOf(const std::string& application, const std::string& id) const;

    /** What an application has bought, the oldest first. */
    std::vector<const Purchase*> of(const std::string& application) const;

    /**
     * An application's subscription to a good that runs at a moment; nullptr where there is none.
     *
     * @param sku empty: any
     * @param mayBeCanceled whether one that is canceled counts, too
     */
    const Purchase* runningOf(const std::string& application, const std::string& goodId,
                              const std::string& sku, Moment now, bool mayBeCanceled) const;

private:
    std::map<int, Purchase> m_purchases;
    std::map<std::string, std::set<int>> m_subscriptionsOf; // an application's, by their numbers
};

} // namespace tamobox

#endif
