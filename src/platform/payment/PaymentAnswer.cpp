// SPDX-License-Identifier: Apache-2.0
#include "PaymentAnswer.h"

#include "DecimalText.h"
#include "MessageReader.h"
#include "ReceiptReader.h"

#include <algorithm>
#include <cstring>

namespace tamo {
namespace platform {

namespace {

// Each reads what "dat" holds, which the reader is in. False: it is malformed.

bool readError(MessageReader& dat, InterfaceResponse& response)
{
    const std::optional<int> code = dat.integer("errorID");
    const std::optional<QString> text = dat.text("errorText");
    if (!code || !text)
        return false;
    response.error = true;
    response.errorCode = *code;
    response.errorText = *text;
    return true;
}

bool readPurchase(MessageReader& dat, InterfaceResponse& response)
{
    response.receipt = QSharedPointer<PurchaseReceipt>::create();
    readReceipt(dat, *response.receipt);
    return true;
}

bool readExistingPurchases(MessageReader& dat, InterfaceResponse& response)
{
    const int length = dat.length();
    response.purchases.reserve(length);
    for (int index = 0; index < length; ++index) {
        if (!dat.enterElement(index))
            return false;
        response.purchases.append(PurchaseReceipt());
        readReceipt(dat, response.purchases.last());
        dat.leave();
    }
    return true;
}

bool readPrice(MessageReader& dat, InterfaceResponse& response)
{
    dat.readText("price", response.price);
    dat.readText("initialPeriod", response.initialPeriod);
    dat.readText("renewalPrice", response.renewalPrice);
    dat.readText("renewalPeriod", response.renewalPeriod);
    return true;
}

bool readStatus(MessageReader& dat, InterfaceResponse& response)
{
    response.subscriptionExists = dat.boolean("subscriptionExists").value_or(false);
    return true;
}

bool readCancellation(MessageReader& dat, InterfaceResponse& response)
{
    dat.readText("purchaseID", response.purchaseId);
    response.cancelled = std::strcmp(dat.utf8("cancelled").value_or(""), "true") == 0;
    return true;
}

bool readNothing(MessageReader&, InterfaceResponse&)
{
    return true;
}

struct Result
{
    const char* name;
    bool (MessageReader::*enter)(const char* name);
    bool (*read)(MessageReader& dat, InterfaceResponse& response);
};

constexpr Result results[] = {
    {"paymentSystemFailure", &MessageReader::enterObject, readError},
    {"getExistingPurchasesFailure", &MessageReader::enterObject, readError},
    {"getPriceFailure", &MessageReader::enterObject, readError},
    {"checkExistingFailure", &MessageReader::enterObject, readError},
    {"cancelSubscriptionFailure", &MessageReader::enterObject, readError},
    {"paymentSystemSuccess", &MessageReader::enterObject, readPurchase},
    {"getExistingPurchasesSuccess", &MessageReader::enterArray, readExistingPurchases},
    {"getPriceSuccess", &MessageReader::enterObject, readPrice},
    {"checkExistingSuccess", &MessageReader::enterObject, readStatus},
    {"cancelSubscriptionSuccess", &MessageReader::enterObject, readCancellation},
};

constexpr Result unknown = {nullptr, &MessageReader::enterContainer, readNothing};

const Result& resultOf(const char* name)
{
    const auto* const found =
        std::find_if(std::begin(results), std::end(results),
                     [name](const Result& result) { return std::strcmp(result.name, name) == 0; });
    return found == std::end(results) ? unknown : *found;
}

} // namespace

QSharedPointer<InterfaceResponse> readPaymentAnswer(const char* text, std::size_t length)
{
    MessageReader reader(text, length);
    if (!reader.isValid() || !reader.enterObject("@control") || !reader.utf8("msg"))
        return {};
    const std::optional<const char*> id = reader.utf8("id");
    const std::optional<int> requestId = id ? leadingInteger(*id) : std::nullopt;
    const std::optional<const char*> res = reader.utf8("res");
    if (!requestId || !res)
        return {};
    const Result& result = resultOf(*res);
    const auto response = QSharedPointer<InterfaceResponse>::create();
    response->requestId = *requestId;
    if (!(reader.*result.enter)("dat") || !result.read(reader, *response))
        return {};
    return response;
}

} // namespace platform
} // namespace tamo
