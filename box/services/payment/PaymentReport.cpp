// SPDX-License-Identifier: Apache-2.0
#include "PaymentReport.h"

#include "Subscription.h"

namespace tamobox {

namespace {

const char* decidesText(const Policy& policy)
{
    switch (policy.who) {
    case Policy::Who::User:
        return "user";
    case Policy::Who::Itself:
        return "itself";
    case Policy::Who::Nobody:
        return "nobody";
    }
    return "";
}

// What the user would see.
std::string priceOf(const PaymentRequest& request)
{
    for (const auto& [name, text] : request.dialog.texts)
        if (name == "price")
            return text;
    return request.good ? request.good->price : "";
}

} // namespace

void writeRequest(MessageWriter& message, const PaymentRequest& request)
{
    message.add("request", request.number)
        .add("id", request.id)
        .add("pid", request.client.process)
        .add("application", request.client.application)
        .add("kind", request.isDialog ? "dialog" : namesOf(request.operation).name)
        .add("decides", decidesText(request.policy))
        .add("since", static_cast<double>(request.since))
        .add("digitalGoodID", request.goodId)
        .add("digitalGoodSKU", request.goodSku)
        .add("digitalGoodName", request.goodName)
        .add("metaData", request.metadata)
        .add("purchaseAppName", request.applicationName)
        .add("purchaseAppIcon", request.applicationIcon)
        .add("uiGroupID", request.group)
        .add("purchaseAppID", request.applicationId)
        .add("purchaseID", request.purchaseId)
        .add("price", priceOf(request))
        .startObject("dialog");
    for (const auto& [name, text] : request.dialog.texts)
        message.add(name.c_str(), text);
    if (request.dialog.backgroundAlpha)
        message.add("bkgAlpha", *request.dialog.backgroundAlpha);
    if (request.isDialog) {
        message.startArray("buttons");
        for (const std::string& label : request.dialog.buttons)
            message.add(nullptr, label);
        message.endArray();
    }
    message.endObject();
}

void writePurchase(MessageWriter& message, const Purchase& purchase, Moment now)
{
    const Standing standing = standingAt(purchase, now);
    message.add("number", purchase.number)
        .add("purchaseID", purchase.id())
        .add("purchaseAppID", purchase.application)
        .add("digitalGoodID", purchase.goodId)
        .add("digitalGoodSKU", purchase.goodSku)
        .add("licenseKey", purchase.licenseKey)
        .add("metaData", purchase.metadata)
        .add("price", purchase.price)
        .add("date", static_cast<double>(purchase.date))
        .add("itemState", static_cast<int>(standing.state));
    if (purchase.subscription)
        message.add("endDate", static_cast<double>(standing.end))
            .add("initialPeriod", purchase.subscription->initialPeriod)
            .add("renewalPeriod", purchase.subscription->renewalPeriod)
            .add("renewalPrice", purchase.subscription->renewalPrice);
}

} // namespace tamobox
