// SPDX-License-Identifier: Apache-2.0
#include "PaymentState.h"

#include "JsonText.h"
#include "PurchaseText.h"

#include "common/Failure.h"

namespace tamobox {

namespace {

constexpr int format = 1;

} // namespace

std::string stateToText(const PaymentState& state)
{
    Json json;
    json.startObject().key("format").number(format).key("advanced").number(state.advanced);
    json.key("purchases").startArray();
    for (const auto& [number, purchase] : state.ledger.all())
        writePurchase(json, purchase);
    return json.endArray().endObject().text() + '\n';
}

PaymentState stateFromText(const std::string& text)
{
    const JsonText json(text, "the state");
    const rapidjson::Value& root = json.root();
    if (!root.IsObject() || !root.HasMember("format") || !root["format"].IsInt())
        throw Failure("it is no state of payments");
    if (root["format"].GetInt() != format)
        throw Failure("it is of another version, " + std::to_string(root["format"].GetInt()));
    if (!root.HasMember("advanced") || !root["advanced"].IsInt64() ||
        root["advanced"].GetInt64() < 0 || root["advanced"].GetInt64() > latestMoment)
        throw Failure("advanced is wrong or missing");
    if (!root.HasMember("purchases") || !root["purchases"].IsArray())
        throw Failure("purchases is wrong or missing");
    PaymentState state;
    state.advanced = root["advanced"].GetInt64();
    for (const rapidjson::Value& element : root["purchases"].GetArray()) {
        const Purchase purchase = readPurchase(element);
        if (state.ledger.find(purchase.number) != nullptr)
            throw Failure("the purchase " + std::to_string(purchase.number) + " is there twice");
        state.ledger.put(purchase);
    }
    return state;
}

} // namespace tamobox
