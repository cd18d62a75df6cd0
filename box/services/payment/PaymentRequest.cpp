// SPDX-License-Identifier: Apache-2.0
#include "PaymentRequest.h"

#include "PaymentLimits.h"

#include "common/Failure.h"
#include "services/RequestValues.h"

#include <array>

namespace tamobox {

namespace {

using Operations = unsigned; // a bit for each

constexpr Operations only(Operation operation)
{
    return 1U << static_cast<unsigned>(operation);
}

constexpr Operations all = ~0U;
constexpr Operations ofGoods =
    only(Operation::Purchase) | only(Operation::Price) | only(Operation::CheckStatus);

struct TextMember
{
    const char* name;
    std::string PaymentRequest::*text;
    Operations operations; // that have it
    std::size_t longest;
};

constexpr std::array<TextMember, 9> textMembers = {{
    {"digitalGoodID", &PaymentRequest::goodId, ofGoods, longestMember},
    {"digitalGoodSKU", &PaymentRequest::goodSku, ofGoods, longestMember},
    {"digitalGoodName", &PaymentRequest::goodName, only(Operation::Purchase), longestMember},
    {"metaData", &PaymentRequest::metadata, only(Operation::Purchase), longestMetadata},
    {"purchaseAppName", &PaymentRequest::applicationName, only(Operation::Purchase), longestMember},
    {"purchaseAppIcon", &PaymentRequest::applicationIcon, only(Operation::Purchase), longestMember},
    {"uiGroupID", &PaymentRequest::group, all, longestMember},
    {"purchaseAppID", &PaymentRequest::applicationId, all & ~only(Operation::Price), longestMember},
    {"purchaseID", &PaymentRequest::purchaseId, only(Operation::CancelSubscription), longestMember},
}};

} // namespace

std::optional<Operation> operationNamed(const std::string& message)
{
    for (const OperationName& names : operationNames)
        if (message == names.request)
            return names.operation;
    return std::nullopt;
}

void readPaymentRequest(const MessageReader& dat, PaymentRequest& request)
{
    for (const TextMember& member : textMembers)
        if ((member.operations & only(request.operation)) != 0)
            request.*member.text = requiredText(dat, member.name, member.longest);
    if (request.operation == Operation::ExistingPurchases)
        request.allowRefresh = requiredFlag(dat, "allowRefresh");
    // Nothing belongs to nobody. A price is everybody's.
    if (request.applicationId.empty() && request.operation != Operation::Price)
        throw Failure("purchaseAppID must not be empty");
}

std::string requestText(const PaymentRequest& request)
{
    return "request " + std::to_string(request.number) + " of " +
           processText(request.client.process, request.client.application);
}

} // namespace tamobox
