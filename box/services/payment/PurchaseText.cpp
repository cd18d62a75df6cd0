// SPDX-License-Identifier: Apache-2.0
#include "PurchaseText.h"

#include "common/Failure.h"

#include <array>

namespace tamobox {

namespace {

struct TextMember
{
    const char* name;
    std::string Purchase::*text;
};

// What is bought at the last moment, and runs for the longest period from there.
constexpr Moment latestEnd = latestMoment + longestPeriod * millisecondsOfADay;

constexpr std::array<TextMember, 6> textMembers = {{
    {"application", &Purchase::application},
    {"digitalGoodID", &Purchase::goodId},
    {"digitalGoodSKU", &Purchase::goodSku},
    {"licenseKey", &Purchase::licenseKey},
    {"metaData", &Purchase::metadata},
    {"price", &Purchase::price},
}};

[[noreturn]] void failAt(const char* name)
{
    throw Failure(std::string("a purchase cannot be read: ") + name + " is wrong or missing");
}

const rapidjson::Value& member(const rapidjson::Value& json, const char* name)
{
    const auto found = json.FindMember(name);
    if (found == json.MemberEnd())
        failAt(name);
    return found->value;
}

std::string text(const rapidjson::Value& json, const char* name)
{
    const rapidjson::Value& value = member(json, name);
    if (!value.IsString())
        failAt(name);
    std::string text(value.GetString(), value.GetStringLength());
    if (text.find('\0') != std::string::npos)
        failAt(name);
    return text;
}

int integer(const rapidjson::Value& json, const char* name, int lowest, int highest)
{
    const rapidjson::Value& value = member(json, name);
    if (!value.IsInt() || value.GetInt() < lowest || value.GetInt() > highest)
        failAt(name);
    return value.GetInt();
}

Moment moment(const rapidjson::Value& json, const char* name, Moment latest)
{
    const rapidjson::Value& value = member(json, name);
    if (!value.IsInt64() || value.GetInt64() < 0 || value.GetInt64() > latest)
        failAt(name);
    return value.GetInt64();
}

} // namespace

void writePurchase(Json& json, const Purchase& purchase)
{
    json.startObject().key("number").number(purchase.number);
    for (const TextMember& member : textMembers)
        json.key(member.name).string(purchase.*member.text);
    json.key("date").number(purchase.date);
    if (const auto& terms = purchase.subscription) {
        json.key("initialPeriod").number(terms->initialPeriod);
        json.key("renewalPeriod").number(terms->renewalPeriod);
        json.key("renewalPrice").string(terms->renewalPrice);
        if (purchase.canceledEnd)
            json.key("canceledEnd").number(*purchase.canceledEnd);
    }
    json.endObject();
}

Purchase readPurchase(const rapidjson::Value& json)
{
    if (!json.IsObject())
        throw Failure("a purchase cannot be read: it is no object");
    Purchase purchase;
    purchase.number = integer(json, "number", 1, Purchase::highestNumber);
    for (const TextMember& member : textMembers)
        purchase.*member.text = text(json, member.name);
    purchase.date = moment(json, "date", latestMoment);
    if (json.HasMember("initialPeriod")) {
        purchase.subscription = SubscriptionTerms{integer(json, "initialPeriod", 1, longestPeriod),
                                                  integer(json, "renewalPeriod", 0, longestPeriod),
                                                  text(json, "renewalPrice")};
        if (json.HasMember("canceledEnd"))
            purchase.canceledEnd = moment(json, "canceledEnd", latestEnd);
    }
    return purchase;
}

} // namespace tamobox
