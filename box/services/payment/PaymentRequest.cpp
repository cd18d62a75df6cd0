// SPDX-License-Identifier: Apache-2.0
#include "PaymentRequest.h"

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

// Of the metadata, a receipt has to find room in an answer, however it is escaped.
constexpr std::size_t longestMetadata = 8192;
constexpr std::size_t longestOther = 4096;

struct TextMember
{
    const char* name;
    std::string PaymentRequest::*text;
    Operations operations; // that have it
    std::size_t longest;
};

constexpr std::array<TextMember, 9> textMembers = {{
    {"digitalGoodID", &PaymentRequest::goodId, ofGoods, longestOther},
    {"digitalGoodSKU", &PaymentRequest::goodSku, ofGoods, longestOther},
    {"digitalGoodName", &PaymentRequest::goodName, only(Operation::Purchase), longestOther},
    {"metaData", &PaymentRequest::metadata, only(Operation::Purchase), longestMetadata},
    {"purchaseAppName", &PaymentRequest::applicationName, only(Operation::Purchase), longestOther},
    {"purchaseAppIcon", &PaymentRequest::applicationIcon, only(Operation::Purchase), longestOther},
    {"uiGroupID", &PaymentRequest::group, all, longestOther},
    {"purchaseAppID", &PaymentRequest::applicationId, all & ~only(Operation::Price), longestOther},
    {"purchaseID", &PaymentRequest::purchaseId, only(Operation::CancelSubscription), longestOther},
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
