// SPDX-License-Identifier: Apache-2.0
#include "platform/payment/PaymentAnswer.h"

#include "platform/payment/ReceiptReader.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

using tamo::platform::InterfaceResponse;
using tamo::platform::PurchaseReceipt;
using tamo::platform::readPaymentAnswer;

namespace {

using Response = QSharedPointer<InterfaceResponse>;

Response read(const std::string& text)
{
    return readPaymentAnswer(text.data(), text.size());
}

/** An answer to request 3. */
Response answer(const std::string& res, const std::string& dat)
{
    return read("@control\nmsg::x\nid::3\nres::" + res + "\ndat:json:" + dat + "\n");
}

QDateTime dateOf(const char* text)
{
    return tamo::platform::dateFromText(text).toDateTime();
}

const char* const failures[] = {"paymentSystemFailure", "getExistingPurchasesFailure",
                                "getPriceFailure", "checkExistingFailure",
                                "cancelSubscriptionFailure"};

TEST(PaymentAnswerTest, BearsTheRequestsIdAndNothingElse)
{
    const Response response = answer("somethingNew", R"({"price":"$1"})");
    ASSERT_TRUE(response);
    EXPECT_EQ(response->requestId, 3);
    EXPECT_FALSE(response->error);
    EXPECT_EQ(response->errorCode, 0);
    EXPECT_TRUE(response->errorText.isNull());
    EXPECT_TRUE(response->receipt.isNull());
    EXPECT_TRUE(response->purchases.isEmpty());
    for (const QString& text : {response->price, response->initialPeriod, response->renewalPrice,
                                response->renewalPeriod, response->purchaseId})
        EXPECT_TRUE(text.isNull());
    EXPECT_FALSE(response->subscriptionExists);
    EXPECT_FALSE(response->cancelled);
}

TEST(PaymentAnswerTest, NeedsAllThatAnAnswerHas)
{
    const std::string object = "@control\n";
    const std::string msg = "msg::x\n";
    const std::string id = "id::3\n";
    const std::string res = "res::getPriceSuccess\n";
    const std::string dat = "dat:json:{}\n";
    EXPECT_TRUE(read(object + msg + id + res + dat));
    EXPECT_TRUE(read(object + dat + res + id + msg));
    EXPECT_FALSE(read(msg + id + res + dat));
    EXPECT_FALSE(read("@other\n" + msg + id + res + dat));
    EXPECT_FALSE(read(object + id + res + dat));
    EXPECT_FALSE(read(object + msg + res + dat));
    EXPECT_FALSE(read(object + msg + id + dat));
    EXPECT_FALSE(read(object + msg + id + res));
    EXPECT_FALSE(read(object + msg + "id:n:3\n" + res + dat));
    EXPECT_FALSE(read(object + msg + id + "res:n:3\n" + dat));
    EXPECT_FALSE(read(object + msg + id + res + "dat::text\n"));
    EXPECT_FALSE(read(""));
    EXPECT_FALSE(read("no message"));
    EXPECT_FALSE(read(object + msg + id + res + dat + std::string(1, '\0')));
}

TEST(PaymentAnswerTest, IdIsTheNumberThatItBeginsWith)
{
    const auto idOf = [](const std::string& id) {
        const Response response = read("@control\nmsg::x\nid::" + id + "\nres::y\ndat:json:{}\n");
        return response ? response->requestId : -1;
    };
    EXPECT_EQ(idOf("0"), 0);
    EXPECT_EQ(idOf("2147483647"), 2147483647);
    EXPECT_EQ(idOf(" 12"), 12);
    EXPECT_EQ(idOf("12x"), 12);
    // An answer for anybody would be one for the first request.
    EXPECT_EQ(idOf(""), -1);
    EXPECT_EQ(idOf("x"), -1);
    EXPECT_EQ(idOf("2147483648"), -1);
    EXPECT_EQ(idOf("99999999999999999999"), -1);
}

TEST(PaymentAnswerTest, FailureTellsNumberAndText)
{
    for (const char* const res : failures) {
        const Response response = answer(res, R"({"errorID":5,"errorText":"no"})");
        ASSERT_TRUE(response) << res;
        EXPECT_TRUE(response->error);
        EXPECT_EQ(response->errorCode, 5);
        EXPECT_EQ(response->errorText, "no");
    }
}

TEST(PaymentAnswerTest, FailureWithoutEitherIsNone)
{
    for (const char* const res : failures) {
        for (const char* const dat :
             {"{}", R"({"errorID":5})", R"({"errorText":"no"})", "[]",
              R"({"errorID":"5","errorText":"no"})", R"({"errorID":5.5,"errorText":"no"})",
              R"({"errorID":3000000000,"errorText":"no"})", R"({"errorID":5,"errorText":7})"})
            EXPECT_FALSE(answer(res, dat)) << res << ' ' << dat;
    }
}

TEST(PaymentAnswerTest, PurchaseHasAReceipt)
{
    const Response response = answer(
        "paymentSystemSuccess",
        R"({"itemState":"0","date":"1300000000","digitalGoodID":"id","digitalGoodSKU":"sku",)"
        R"("licenseKey":"<k>\\ ","metaData":"m","purchaseID":"p"})");
    ASSERT_TRUE(response);
    ASSERT_TRUE(response->receipt);
    const PurchaseReceipt& receipt = *response->receipt;
    EXPECT_EQ(receipt.state(), 0);
    EXPECT_FALSE(receipt.isSubscription());
    EXPECT_EQ(receipt.date(), QDateTime::fromMSecsSinceEpoch(1300000000000));
    EXPECT_EQ(receipt.digitalGoodId(), "id");
    EXPECT_EQ(receipt.digitalGoodSku(), "sku");
    EXPECT_EQ(receipt.licenseKey(), "<k>\\ ");
    EXPECT_EQ(receipt.purchaseMetadata(), "m");
    EXPECT_EQ(receipt.purchaseId(), "p");
    EXPECT_EQ(receipt.initialPeriod(), -1);
    EXPECT_TRUE(response->purchases.isEmpty());
}

TEST(PaymentAnswerTest, EachFieldOfAReceiptMayBeMissing)
{
    const std::pair<const char*, QString (PurchaseReceipt::*)() const> fields[] = {
        {"digitalGoodID", &PurchaseReceipt::digitalGoodId},
        {"digitalGoodSKU", &PurchaseReceipt::digitalGoodSku},
        {"licenseKey", &PurchaseReceipt::licenseKey},
        {"metaData", &PurchaseReceipt::purchaseMetadata},
        {"purchaseID", &PurchaseReceipt::purchaseId}};
    for (const auto& [present, getPresent] : fields) {
        const Response response =
            answer("paymentSystemSuccess", "{\"" + std::string(present) + "\":\"v\"}");
        ASSERT_TRUE(response);
        for (const auto& [name, get] : fields)
            EXPECT_EQ((*response->receipt.*get)(), get == getPresent ? "v" : QString()) << name;
        EXPECT_EQ(response->receipt->state(), 5);
        EXPECT_TRUE(response->receipt->date().isNull());
    }
}

TEST(PaymentAnswerTest, SubscriptionHasAPeriod)
{
    const std::string period = R"("startDate":"10","endDate":"20","initialPeriod":"7")";
    const auto receiptOf = [](const std::string& dat) {
        return *answer("paymentSystemSuccess", "{" + dat + "}")->receipt;
    };
    for (const char* const state : {"1", "2", "4", "6", "-1"}) {
        const auto receipt = receiptOf("\"itemState\":\"" + std::string(state) + "\"," + period);
        EXPECT_EQ(receipt.state(), QString(state).toInt());
        EXPECT_EQ(receipt.startDate(), QDateTime::fromMSecsSinceEpoch(10'000)) << state;
        EXPECT_EQ(receipt.endDate(), QDateTime::fromMSecsSinceEpoch(20'000));
        EXPECT_EQ(receipt.initialPeriod(), 7);
    }
    for (const char* const state : {R"("itemState":"0",)", R"("itemState":"5",)", "",
                                    R"("itemState":1,)", R"("itemState":"none",)"}) {
        const auto receipt = receiptOf(state + period);
        EXPECT_TRUE(receipt.startDate().isNull()) << state;
        EXPECT_TRUE(receipt.endDate().isNull());
        EXPECT_EQ(receipt.initialPeriod(), -1);
    }
    const auto withoutStart = receiptOf(R"("itemState":"1","endDate":"20","initialPeriod":"7x")");
    EXPECT_TRUE(withoutStart.endDate().isNull());
    EXPECT_EQ(withoutStart.initialPeriod(), -1);
    const auto withoutEnd = receiptOf(R"("itemState":"1","startDate":"10","initialPeriod":"7")");
    EXPECT_TRUE(withoutEnd.startDate().isNull());
    EXPECT_EQ(withoutEnd.initialPeriod(), -1);
    const auto withoutPeriod = receiptOf(R"("itemState":"1","startDate":"10","endDate":"20")");
    EXPECT_EQ(withoutPeriod.endDate(), QDateTime::fromMSecsSinceEpoch(20'000));
    EXPECT_EQ(withoutPeriod.initialPeriod(), -1);
    EXPECT_EQ(receiptOf(R"("itemState":"1","startDate":"x","endDate":"x","initialPeriod":"7x")")
                  .initialPeriod(),
              7);
}

TEST(PaymentAnswerTest, StateThatIsNoNumberIsZeroAndOneThatIsTooLargeIsUnknown)
{
    using tamo::platform::stateFromText;
    for (const char* const text : {"", "x", "-", " +x"})
        EXPECT_EQ(stateFromText(text), 0) << text;
    EXPECT_EQ(stateFromText(" 3x"), 3);
    EXPECT_EQ(stateFromText("2147483647"), 2147483647);
    for (const char* const text : {"2147483648", "-2147483649", "99999999999999999999"})
        EXPECT_EQ(stateFromText(text), 5) << text;
}

TEST(PaymentAnswerTest, DateIsOfSecondsOrOfMilliseconds)
{
    EXPECT_EQ(dateOf("1300000000"), QDateTime::fromMSecsSinceEpoch(1300000000000));
    EXPECT_EQ(dateOf("1300000000000"), QDateTime::fromMSecsSinceEpoch(1300000000000));
    EXPECT_EQ(dateOf("13000000000"), QDateTime::fromMSecsSinceEpoch(13000000000));
    EXPECT_EQ(dateOf("0"), QDateTime::fromMSecsSinceEpoch(0));
    EXPECT_EQ(dateOf("-5"), QDateTime::fromMSecsSinceEpoch(-5000));
    for (const char* const text : {"", "x", "12x", "1.5", "0x10", "99999999999999999999"})
        EXPECT_TRUE(dateOf(text).isNull()) << text;
    const qint64 latest = std::numeric_limits<qint64>::max();
    EXPECT_EQ(dateOf("9223372036854775807"), QDateTime::fromMSecsSinceEpoch(latest));
}

TEST(PaymentAnswerTest, ExistingPurchasesAreAList)
{
    const Response response =
        answer("getExistingPurchasesSuccess", R"([{"purchaseID":"a"},{},{"purchaseID":"b"}])");
    ASSERT_TRUE(response);
    ASSERT_EQ(response->purchases.size(), 3);
    EXPECT_EQ(response->purchases[0].purchaseId(), "a");
    EXPECT_TRUE(response->purchases[1].purchaseId().isNull());
    EXPECT_EQ(response->purchases[2].purchaseId(), "b");
    const Response none = answer("getExistingPurchasesSuccess", "[]");
    ASSERT_TRUE(none);
    EXPECT_TRUE(none->purchases.isEmpty());
    EXPECT_FALSE(none->error);
}

TEST(PaymentAnswerTest, ListOfAnythingElseIsNone)
{
    for (const char* const dat : {"[1]", R"([{},"x"])", "[null,{}]", "[[]]", "{}"})
        EXPECT_FALSE(answer("getExistingPurchasesSuccess", dat)) << dat;
}

TEST(PaymentAnswerTest, PurchaseThatIsNoObjectIsNone)
{
    for (const char* const dat : {"[]", R"([{"itemState":"0"}])", "null"})
        EXPECT_FALSE(answer("paymentSystemSuccess", dat)) << dat;
}

TEST(PaymentAnswerTest, PriceHasFourTextsAndEachMayBeMissing)
{
    using Member = QString InterfaceResponse::*;
    const std::pair<const char*, Member> fields[] = {
        {"price", &InterfaceResponse::price},
        {"initialPeriod", &InterfaceResponse::initialPeriod},
        {"renewalPrice", &InterfaceResponse::renewalPrice},
        {"renewalPeriod", &InterfaceResponse::renewalPeriod}};
    for (const auto& [present, presentMember] : fields) {
        const Response response =
            answer("getPriceSuccess", "{\"" + std::string(present) + "\":\"v\"}");
        ASSERT_TRUE(response);
        for (const auto& [name, member] : fields)
            EXPECT_EQ((*response).*member, member == presentMember ? "v" : QString()) << name;
    }
}

TEST(PaymentAnswerTest, StatusIsABoolean)
{
    const auto status = [](const char* dat) {
        return answer("checkExistingSuccess", dat)->subscriptionExists;
    };
    EXPECT_TRUE(status(R"({"subscriptionExists":true})"));
    EXPECT_FALSE(status(R"({"subscriptionExists":false})"));
    EXPECT_FALSE(status(R"({"subscriptionExists":"true"})"));
    EXPECT_FALSE(status("{}"));
}

TEST(PaymentAnswerTest, CancellationIsTheTextTrue)
{
    const auto cancelled = [](const char* dat) {
        return answer("cancelSubscriptionSuccess", dat)->cancelled;
    };
    EXPECT_TRUE(cancelled(R"({"cancelled":"true"})"));
    for (const char* const dat : {R"({"cancelled":"TRUE"})", R"({"cancelled":"true "})",
                                  R"({"cancelled":true})", R"({"cancelled":""})", "{}"})
        EXPECT_FALSE(cancelled(dat)) << dat;
    EXPECT_EQ(answer("cancelSubscriptionSuccess", R"({"purchaseID":"p"})")->purchaseId, "p");
}

TEST(PaymentAnswerTest, EveryTruncationIsNone)
{
    const std::string whole = "@control\nmsg::x\nid::3\nres::getExistingPurchasesSuccess\n"
                              "dat:json:[{\"purchaseID\":\"a\",\"itemState\":\"1\"}]";
    ASSERT_TRUE(read(whole + "\n"));
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_FALSE(read(whole.substr(0, length))) << length;
}

} // namespace
