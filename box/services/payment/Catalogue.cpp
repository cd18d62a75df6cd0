// SPDX-License-Identifier: Apache-2.0
#include "Catalogue.h"

#include "CatalogueReader.h"
#include "JsonText.h"
#include "PolicyReader.h"

#include "common/Failure.h"

namespace tamobox {

Catalogue Catalogue::parse(const std::string& text, const std::string& source)
{
    if (text.size() > longestText)
        throw Failure(source + " is longer than " + std::to_string(longestText) + " bytes");
    const JsonText json(text, source);
    const CatalogueReader root(json.root(), source, "");
    root.allow({"goods", "operations"});
    Catalogue catalogue;
    for (const CatalogueReader& member : root.elements("goods")) {
        member.allow({"id", "sku", "name", "price", "licenseKey", "subscription", "policy"});
        Good good;
        good.id = member.text("id");
        good.sku = member.textOr("sku", "");
        good.name = member.text("name");
        good.price = member.text("price");
        good.licenseKey = member.textOr("licenseKey", "");
        if (const auto terms = member.object("subscription")) {
            terms->allow({"initialPeriod", "renewalPeriod", "renewalPrice"});
            good.subscription = SubscriptionTerms{
                terms->integer("initialPeriod", 1, longestPeriod),
                terms->has("renewalPeriod") ? terms->integer("renewalPeriod", 1, longestPeriod) : 0,
                terms->textOr("renewalPrice", "")};
            if (good.subscription->renewalPeriod != 0 && good.subscription->renewalPrice.empty())
                terms->fail("renewalPrice", "is missing: what is renewed has a price");
            if (good.subscription->renewalPeriod == 0 && !good.subscription->renewalPrice.empty())
                terms->fail("renewalPeriod", "is missing: what has a price for it is renewed");
        }
        if (const auto policy = member.object("policy"))
            good.policy = readPolicy(*policy);
        const std::size_t index = catalogue.m_goods.size();
        if (!catalogue.m_byId.emplace(good.id, index).second)
            member.fail("id", "is another good's already");
        if (!good.sku.empty() && !catalogue.m_bySku.emplace(good.sku, index).second)
            member.fail("sku", "is another good's already");
        catalogue.m_goods.push_back(std::move(good));
    }
    if (const auto operations = root.object("operations")) {
        operations->allow({"existingPurchases", "price", "checkStatus", "cancelSubscription"});
        for (const OperationName& names : operationNames)
            if (const auto policy = operations->object(names.name))
                catalogue.m_policies[names.operation] = readPolicy(*policy);
    }
    return catalogue;
}

const Good* Catalogue::find(const std::string& id, const std::string& sku) const
{
    const auto& index = id.empty() ? m_bySku : m_byId;
    const auto found = index.find(id.empty() ? sku : id);
    if (found == index.end())
        return nullptr;
    const Good& good = m_goods[found->second];
    return sku.empty() || good.sku == sku ? &good : nullptr;
}

Policy Catalogue::policyFor(Operation operation) const
{
    const auto found = m_policies.find(operation);
    return found == m_policies.end() ? immediateApproval() : found->second;
}

} // namespace tamobox
