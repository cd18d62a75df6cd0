// SPDX-License-Identifier: Apache-2.0
#include "common/Failure.h"
#include "services/dialog/DialogAnswer.h"
#include "services/dialog/DialogRequest.h"
#include "services/payment/PaymentAnswer.h"

#include <gmock/gmock.h>

using namespace tamobox;
using namespace testing;

namespace {

constexpr Moment begin = 1'000'000'000'000;

template<typename Read>
std::string failureOf(Read read, const std::string& dat, Operation operation = {})
{
    PaymentRequest request;
    request.operation = operation;
    MessageReader reader("dat:json:" + dat + '\n');
    reader.enter("dat");
    try {
        read(reader, request);
        return "taken";
    } catch (const Failure& failure) {
        return failure.what();
    }
}

std::string failureOf(Operation operation, const std::string& dat)
{
    return failureOf([](const MessageReader& reader,
                        PaymentRequest& request) { readPaymentRequest(reader, request); },
                     dat, operation);
}

std::string textOf(const PaymentRequest& request, const PaymentAnswer& answer)
{
    MessageWriter message;
    writeAnswer(message, request, answer, begin);
    return message.text();
}

PaymentRequest requestFor(Operation operation)
{
    PaymentRequest request;
    request.number = 3;
    request.id = "8";
    request.operation = operation;
    return request;
}

TEST(PaymentRequestTest, EachOperationHasItsMembers)
{
    EXPECT_EQ(failureOf(Operation::Purchase,
                        R"({"digitalGoodID":"a","digitalGoodSKU":"","digitalGoodName":"",)"
                        R"("metaData":"","purchaseAppName":"","purchaseAppIcon":"",)"
                        R"("uiGroupID":"","purchaseAppID":"x"})"),
              "taken");
    EXPECT_EQ(failureOf(Operation::ExistingPurchases,
                        R"({"uiGroupID":"","purchaseAppID":"x","allowRefresh":false})"),
              "taken");
    EXPECT_EQ(
        failureOf(Operation::Price, R"({"digitalGoodID":"a","digitalGoodSKU":"","uiGroupID":""})"),
        "taken");
    EXPECT_EQ(failureOf(Operation::CancelSubscription,
                        R"({"purchaseID":"p","purchaseAppID":"x","uiGroupID":""})"),
              "taken");
}

TEST(PaymentRequestTest, WhatIsMissingOrWrongIsNamed)
{
    EXPECT_THAT(failureOf(Operation::ExistingPurchases,
                          R"({"uiGroupID":"","purchaseAppID":"x","allowRefresh":"true"})"),
                HasSubstr("allowRefresh must be true or false"));
    EXPECT_THAT(failureOf(Operation::ExistingPurchases,
                          R"({"uiGroupID":"","purchaseAppID":"","allowRefresh":true})"),
                HasSubstr("purchaseAppID must not be empty"));
    EXPECT_THAT(failureOf(Operation::ExistingPurchases, R"({"uiGroupID":"","allowRefresh":true})"),
                HasSubstr("purchaseAppID must be a text"));
    EXPECT_THAT(
        failureOf(Operation::Price, R"({"digitalGoodID":7,"digitalGoodSKU":"","uiGroupID":""})"),
        HasSubstr("digitalGoodID must be a text"));
}

TEST(PaymentAnswerTest, AReceiptHasWhatWasBought)
{
    PaymentAnswer answer;
    answer.purchases.emplace_back();
    Purchase& purchase = answer.purchases[0];
    purchase.number = 3;
    purchase.goodId = "a";
    purchase.goodSku = "s";
    purchase.licenseKey = "k";
    purchase.metadata = "m";
    purchase.date = begin;
    EXPECT_EQ(textOf(requestFor(Operation::Purchase), answer),
              "msg::paymentSystemType\nid::8\nres::paymentSystemSuccess\n"
              R"(dat:json:{"itemState":"0","date":"1000000000000","digitalGoodID":"a",)"
              R"("digitalGoodSKU":"s","licenseKey":"k","metaData":"m","purchaseID":"purchase-3"})"
              "\n");
    purchase.subscription = SubscriptionTerms{7, 0, ""};
    EXPECT_THAT(textOf(requestFor(Operation::ExistingPurchases), answer),
                AllOf(HasSubstr("res::getExistingPurchasesSuccess\ndat:json:[{"),
                      HasSubstr(R"("itemState":"1","startDate":"1000000000000",)"
                                R"("endDate":"1000604800000","initialPeriod":"7")")));
}

TEST(PaymentAnswerTest, ErrorsAreFailuresOfTheirOperation)
{
    for (const OperationName& names : operationNames) {
        PaymentAnswer answer;
        answer.error = PaymentError{17, "No."};
        EXPECT_EQ(textOf(requestFor(names.operation), answer),
                  std::string("msg::") + names.request + "\nid::8\nres::" + names.failure +
                      "\ndat:json:{\"errorID\":17,\"errorText\":\"No.\"}\n");
    }
}

TEST(PaymentAnswerTest, PricesHaveTheTermsThatThereAre)
{
    PaymentAnswer answer;
    answer.good = Good();
    answer.good->price = "$1";
    EXPECT_THAT(textOf(requestFor(Operation::Price), answer),
                HasSubstr("dat:json:{\"price\":\"$1\"}\n"));
    answer.good->subscription = SubscriptionTerms{7, 14, "$2"};
    EXPECT_THAT(textOf(requestFor(Operation::Price), answer),
                HasSubstr(R"({"price":"$1","initialPeriod":"7","renewalPrice":"$2",)"
                          R"("renewalPeriod":"14"})"));
}

TEST(PaymentAnswerTest, StatusAndCancellation)
{
    PaymentAnswer answer;
    answer.subscriptionExists = true;
    EXPECT_THAT(textOf(requestFor(Operation::CheckStatus), answer),
                HasSubstr("res::checkExistingSuccess\ndat:json:{\"subscriptionExists\":true}"));
    answer.purchaseId = "p";
    EXPECT_THAT(textOf(requestFor(Operation::CancelSubscription), answer),
                HasSubstr(R"(dat:json:{"purchaseID":"p","cancelled":"true"})"));
}

std::string failureOfDialog(const std::string& dat)
{
    return failureOf(
        [](MessageReader& reader, PaymentRequest& request) { readDialogRequest(reader, request); },
        dat);
}

std::string dialogWith(const std::string& description)
{
    return R"({"className":"ule.dialog::PurchaseConfirmDialog","desc_obj":)" + description + '}';
}

constexpr const char* buttons =
    R"("buttons":[{"label":"confirmpurchase.cancel"},{"label":"confirmpurchase.buynow","context":)"
    R"({"digitalGoodID":"a","digitalGoodSKU":"","digitalGoodName":"n","metaData":""}}])";

TEST(DialogRequestTest, OnlyTheTestingPurchaseDialogIsShown)
{
    EXPECT_EQ(failureOfDialog(dialogWith(std::string(R"({"testingMode":"true","bkgAlpha":0.5,)") +
                                         buttons + "}")),
              "taken");
    EXPECT_THAT(failureOfDialog(R"({"className":"other","desc_obj":{}})"),
                HasSubstr("there is no dialog 'other'"));
    EXPECT_THAT(failureOfDialog("{}"), HasSubstr("className must be"));
    EXPECT_THAT(failureOfDialog(dialogWith("7")), HasSubstr("desc_obj must be an object"));
    EXPECT_THAT(failureOfDialog(dialogWith(std::string("{") + buttons + "}")),
                HasSubstr("testingMode must be 'true'"));
    EXPECT_THAT(failureOfDialog(dialogWith(R"({"testingMode":"true"})")),
                HasSubstr("buttons must be"));
    EXPECT_THAT(failureOfDialog(dialogWith(R"({"testingMode":"true","buttons":[]})")),
                HasSubstr("there is no button confirmpurchase.buynow"));
    EXPECT_THAT(failureOfDialog(dialogWith(R"({"testingMode":"true","buttons":[7]})")),
                HasSubstr("a button must be"));
    EXPECT_THAT(
        failureOfDialog(dialogWith(
            R"({"testingMode":"true","buttons":[{"label":"confirmpurchase.buynow","context":{}}]})")),
        HasSubstr("digitalGoodID must be"));
}

TEST(DialogAnswerTest, ButtonsAreAnswered)
{
    PaymentRequest request = requestFor(Operation::Purchase);
    request.good = Good();
    request.good->subscription = SubscriptionTerms{7, 0, ""};
    MessageWriter bought;
    writeDialogChoice(bought, request, true, begin);
    EXPECT_EQ(bought.text(),
              "msg::show\nid::8\nres::ok\n"
              R"(dat:json:{"resp_obj":{"errorSelection":"paymentSuccess",)"
              R"("responseBtnLabel":"confirmpurchase.buynow","purchaseID":"test-purchase-3",)"
              R"("itemState":"1","startDate":1000000000000,"endDate":1000604800000,)"
              R"("initialPeriod":"7"}})"
              "\n");
    MessageWriter canceled;
    writeDialogChoice(canceled, request, false, begin);
    EXPECT_THAT(canceled.text(), HasSubstr(R"("responseBtnLabel":"confirmpurchase.cancel"}})"));
}

TEST(DialogAnswerTest, TheLongestFailureFindsRoom)
{
    MessageWriter message;
    message.object("control");
    writeDialogFailure(message, std::string(64, '7'), std::string(5000, '"'));
    EXPECT_LE(message.text().size(), 1024U);
    MessageWriter cut;
    writeDialogFailure(cut, "7", std::string(255, 'x') + "\xc3\xa9");
    EXPECT_THAT(cut.text(), HasSubstr("x\"}}"));
}

} // namespace
