// SPDX-License-Identifier: Apache-2.0
// Any bytes as an answer of the payment system's, and of the purchase dialog's: a response whose
// parts agree with each other, or none.
#include "Require.h"

#include "platform/payment/PaymentAnswer.h"
#include "platform/payment/PurchaseDialog.h"

#include <tamo/Exception.h>

#include <cstdint>
#include <vector>

using tamo::platform::PurchaseDialog;
using tamo::platform::PurchaseReceipt;

namespace {

void check(const PurchaseReceipt& receipt)
{
    const bool hasPeriod = receipt.state() != 0 && receipt.state() != 5;
    require(hasPeriod || (receipt.startDate().isNull() && receipt.endDate().isNull() &&
                          receipt.initialPeriod() == -1),
            "what is no subscription has a period");
}

void readAsAnswer(const std::vector<char>& text)
{
    const auto response = tamo::platform::readPaymentAnswer(text.data(), text.size());
    if (!response)
        return;
    require(!response->error || (!response->receipt && response->purchases.isEmpty()),
            "an error with a purchase");
    require(!response->receipt || response->purchases.isEmpty(), "a purchase and a list");
    if (response->receipt)
        check(*response->receipt);
    for (const PurchaseReceipt& receipt : response->purchases)
        check(receipt);
}

void readAsDialog(const std::vector<char>& text)
{
    try {
        const auto outcome = PurchaseDialog().outcome(text.data(), text.size());
        require(!outcome.receipt == (outcome.errorCode != 0),
                "an error with a purchase, or neither");
        if (outcome.receipt)
            check(*outcome.receipt);
    } catch (const tamo::Exception&) {
        // Said to be malformed.
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::vector<char> text(data, data + size); // exactly as long, for the sanitizer to see
    readAsAnswer(text);
    readAsDialog(text);
    return 0;
}
