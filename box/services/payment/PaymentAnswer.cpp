// SPDX-License-Identifier: Apache-2.0
#include "PaymentAnswer.h"

#include "Subscription.h"

namespace tamobox {

namespace {

void writeReceipt(MessageWriter& message, const Purchase& purchase, Moment now)
{
    const Standing standing = standingAt(purchase, now);
    message.add("itemState", std::to_string(static_cast<int>(standing.state)));
    if (const auto& terms = purchase.subscription)
        message.add("startDate", std::to_string(purchase.date))
            .add("endDate", std::to_string(standing.end))
            .add("initialPeriod", std::to_string(terms->initialPeriod));
    message.add("date", std::to_string(purchase.date))
        .add("digitalGoodID", purchase.goodId)
        .add("digitalGoodSKU", purchase.goodSku)
        .add("licenseKey", purchase.licenseKey)
        .add("metaData", purchase.metadata)
        .add("purchaseID", purchase.id());
}

void writeReceipts(MessageWriter& message, const std::vector<Purchase>& purchases, Moment now)
{
    message.startArray("dat");
    for (const Purchase& purchase : purchases) {
        message.startObject(nullptr);
        writeReceipt(message, purchase, now);
        message.endObject();
    }
    message.endArray();
}

void writePrice(MessageWriter& message, const Good& good)
{
    message.add("price", good.price);
    if (!good.subscription)
        return;
    message.add("initialPeriod", std::to_string(good.subscription->initialPeriod));
    if (good.subscription->renewalPeriod != 0)
        message.add("renewalPrice", good.subscription->renewalPrice)
            .add("renewalPeriod", std::to_string(good.subscription->renewalPeriod));
}

} // namespace

void writeAnswer(MessageWriter& message, const PaymentRequest& request, const PaymentAnswer& answer,
                 Moment now)
{
    const OperationName& names = namesOf(request.operation);
    message.add("msg", names.request)
        .add("id", request.id)
        .add("res", answer.error ? names.failure : names.success);
    if (!answer.error && request.operation == Operation::ExistingPurchases) {
        writeReceipts(message, answer.purchases, now);
        return;
    }
    message.startObject("dat");
    if (answer.error) {
        message.add("errorID", answer.error->code).add("errorText", answer.error->text);
    } else {
        switch (request.operation) {
        case Operation::Purchase:
            writeReceipt(message, answer.purchases.at(0), now);
            break;
        case Operation::Price:
            writePrice(message, answer.good.value());
            break;
        case Operation::CheckStatus:
            message.add("subscriptionExists", answer.subscriptionExists);
            break;
        case Operation::CancelSubscription:
            message.add("purchaseID", answer.purchaseId).add("cancelled", "true");
            break;
        case Operation::ExistingPurchases:
            break; // is an array, above
        }
    }
    message.endObject();
}

} // namespace tamobox
