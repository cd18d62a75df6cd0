// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_PURCHASESTORE_H
#define TAMOBOX_PURCHASESTORE_H

#include "PaymentState.h"

#include <memory>
#include <string>

namespace tamobox {

/** Where the state is while the service is not there. */
class PurchaseStore
{
public:
    virtual ~PurchaseStore() = default;

    /** The store of this box: a kept box's directory, or else its `/pps`. */
    static std::unique_ptr<PurchaseStore> ofThisBox();

    /**
     * Reads what was saved; nothing where nothing ever was.
     *
     * @param trouble what people should know of it, one sentence; left alone where all is well
     * @throws Failure where the service must not begin
     */
    virtual PaymentState load(std::string& trouble) = 0;

    /** Saves a purchase that has been added to the state, or has changed in it. When it returns,
     * load() finds it. Throws Failure, and then nothing was saved. */
    virtual void savePurchase(const PaymentState& state, const Purchase& purchase) = 0;

    /** Saves how far the clock is advanced. Throws Failure, and then nothing was saved. */
    virtual void saveClock(const PaymentState& state) = 0;
};

} // namespace tamobox

#endif
