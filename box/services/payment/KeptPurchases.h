// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_KEPTPURCHASES_H
#define TAMOBOX_KEPTPURCHASES_H

#include "PurchaseStore.h"

namespace tamobox {

/** The state of a kept box: one file, replaced as a whole with each change, so that it is always
 * either the one before or the one after. */
class KeptPurchases : public PurchaseStore
{
public:
    /** @param directory of the box; it is there, and the user's own */
    explicit KeptPurchases(std::string directory);

    /** A file that cannot be read as a state is renamed, so that it is still there to look at, and
     * the state begins empty. */
    PaymentState load(std::string& trouble) override;

    void savePurchase(const PaymentState& state, const Purchase& purchase) override;
    void saveClock(const PaymentState& state) override;

private:
    void save(const PaymentState& state);
    std::string setAside() const;

    std::string m_directory;
    std::string m_path;
};

} // namespace tamobox

#endif
