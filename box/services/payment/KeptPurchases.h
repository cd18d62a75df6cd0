// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_KEPTPURCHASES_H
#define TAMOBOX_KEPTPURCHASES_H

#include "PurchaseStore.h"

#include <cstddef>

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

    /** The longest file that a purchase is added to, in bytes: it is written anew for each. */
    static constexpr std::size_t longestFile = std::size_t{4} << 20;

    /** Throws Failure also where the file would be longer than longestFile; a cancellation finds
     * room in any case. */
    void savePurchase(const PaymentState& state, const Purchase& purchase) override;
    void saveClock(const PaymentState& state) override;

private:
    void save(const std::string& text);
    std::string setAside() const;

    std::string m_directory;
    std::string m_path;
};

} // namespace tamobox

#endif
