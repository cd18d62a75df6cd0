// SPDX-License-Identifier: Apache-2.0
#include "DialogAnswer.h"

#include "DialogWords.h"

#include "services/payment/PaymentLimits.h"
#include "services/payment/Subscription.h"

namespace tamobox {

namespace {

MessageWriter& startAnswer(MessageWriter& message, const std::string& id, const char* result)
{
    return message.add("msg", "show")
        .add("id", id)
        .add("res", result)
        .startObject("dat")
        .startObject("resp_obj");
}

void writePurchase(MessageWriter& message, const PaymentRequest& request, Moment now)
{
    Purchase purchase;
    purchase.number = request.number;
    purchase.date = now;
    if (request.good)
        purchase.subscription = request.good->subscription;
    const Standing standing = standingAt(purchase, now);
    message.add("purchaseID", "test-" + purchase.id())
        .add("itemState", std::to_string(static_cast<int>(standing.state)));
    if (const auto& terms = purchase.subscription)
        message.add("startDate", static_cast<double>(now))
            .add("endDate", static_cast<double>(standing.end))
            .add("initialPeriod", std::to_string(terms->initialPeriod));
}

} // namespace

void writeDialogChoice(MessageWriter& message, const PaymentRequest& request, bool buys, Moment now)
{
    startAnswer(message, request.id, "ok")
        .add("errorSelection", dialogSucceeded)
        .add("responseBtnLabel", buys ? buyLabel : cancelLabel);
    if (buys)
        writePurchase(message, request, now);
    message.endObject().endObject();
}

void writeDialogFailure(MessageWriter& message, const std::string& id, std::string text)
{
    if (text.size() > longestFailureText) {
        std::size_t size = longestFailureText;
        while (size > 0 && (static_cast<unsigned char>(text[size]) & 0xC0) == 0x80)
            --size;
        text.resize(size);
    }
    startAnswer(message, id, "error").add("errorSelection", text).endObject().endObject();
}

} // namespace tamobox
