// SPDX-License-Identifier: Apache-2.0
#include "PaymentTest.h"

using namespace boxtest;
using namespace testing;

namespace {

class PaymentCommandTest : public PaymentTest
{
};

constexpr const char* small = R"({"goods":[{"id":"own","name":"Mine","price":"7 EUR",)"
                              R"("policy":{"answer":"approve"}}]})";

TEST_P(PaymentCommandTest, ABoxIsGivenACatalogue)
{
    const Box box = startIdleWith({"--catalogue", fileWith(small)});
    EXPECT_EQ(in(box, {"payment", "catalogue"}).output, small);
    EXPECT_THAT(answerTo(box, price("1", "own")), HasSubstr("7 EUR"));
    EXPECT_THAT(answerTo(box, purchase("2", "own")), HasSubstr("paymentSystemSuccess"));
    EXPECT_THAT(answerTo(box, price("3", "coins-100")), HasSubstr("getPriceFailure"));
    box.signal("payment-service", SIGKILL);
    EXPECT_TRUE(box.launcher->complained("payment-service ended by signal 9; started again\n"));
    EXPECT_EQ(in(box, {"payment", "catalogue"}).output, small);
}

TEST_P(PaymentCommandTest, TheCatalogueIsReplacedWhileTheBoxRuns)
{
    const Box box = startIdle();
    EXPECT_THAT(in(box, {"payment", "catalogue"}).output, HasSubstr("\"coins-100\""));
    EXPECT_THAT(in(box, {"payment", "catalogue", fileWith(small)}), succeeds());
    EXPECT_THAT(answerTo(box, price("1", "own")), HasSubstr("7 EUR"));
    EXPECT_THAT(answerTo(box, price("2", "coins-100")), HasSubstr("getPriceFailure"));
}

TEST_P(PaymentCommandTest, ABadCatalogueIsRefusedAndNothingChanges)
{
    const Box box = startIdle();
    const std::string bad = fileWith(R"({"goods":[{"id":"a","name":"A"}]})");
    EXPECT_THAT(in(box, {"payment", "catalogue", bad}),
                failsWith(1, bad + ": goods[0].price is missing"));
    EXPECT_THAT(in(box, {"payment", "catalogue", "/no/such/file"}),
                failsWith(1, "cannot open /no/such/file"));
    EXPECT_THAT(answerTo(box, price("1", "coins-100")), HasSubstr("$1.99"));
    EXPECT_THAT(run({"run", "--catalogue", bad, "--", "true"}),
                failsWith(125, "goods[0].price is missing"));
    EXPECT_THAT(run({"run", "--catalogue", fileWith("{\n]"), "--", "true"}),
                failsWith(125, "line 2, column 1"));
}

TEST_P(PaymentCommandTest, OtherOperationsHavePoliciesToo)
{
    const Box box = startIdleWith(
        {"--catalogue", fileWith(R"({"goods":[],"operations":{)"
                                 R"("existingPurchases":{"answer":"fail","code":5,"text":"Busy."},)"
                                 R"("checkStatus":{"answer":"garbage"},"price":{"answer":"never"},)"
                                 R"("cancelSubscription":{"answer":"decline"}}})")});
    EXPECT_THAT(answerTo(box, existing("1")),
                HasSubstr("res::getExistingPurchasesFailure\n"
                          "dat:json:{\"errorID\":5,\"errorText\":\"Busy.\"}"));
    EXPECT_THAT(answerTo(box, status("2", "x")), HasSubstr("garbage::"));
    EXPECT_THAT(answerTo(box, cancellation("3", "x")),
                HasSubstr("res::cancelSubscriptionFailure\ndat:json:{\"errorID\":2,"));
    const Client client = startClient(box, {price("4", "x")});
    EXPECT_THAT(in(box, {"payment", "list", "--json"}).output, HasSubstr(R"("kind":"price")"));
}

TEST_P(PaymentCommandTest, WrongCommandsAreRefused)
{
    const Box box = startIdle();
    EXPECT_THAT(in(box, {"payment", "approve", "--wait", "1ms"}),
                failsWith(1, "no request is waiting for a decision"));
    EXPECT_THAT(in(box, {"payment", "approve", "--request", "0"}), failsWith(2, "--request"));
    EXPECT_THAT(in(box, {"payment", "fail"}), failsWith(2, "text"));
    EXPECT_THAT(in(box, {"payment", "fail", ""}), failsWith(2, "must not be empty"));
    EXPECT_THAT(in(box, {"payment", "fail", "paymentSuccess"}), failsWith(1, "all is well"));
    EXPECT_THAT(in(box, {"payment", "fail", std::string(257, 'x')}), failsWith(1, "256 bytes"));
    EXPECT_THAT(in(box, {"payment", "refund"}), failsWith(2, "refund"));
    EXPECT_THAT(in(box, {"clock", "advance"}), failsWith(2, "duration"));
    EXPECT_THAT(in(box, {"clock", "advance", "-1d"}), failsWith(2, "-1d"));
    EXPECT_THAT(in(box, {"clock", "advance", "30"}), failsWith(2, "is no duration"));
    EXPECT_THAT(in(box, {"clock", "advance", "40000d"}), failsWith(2, "at most 36500d"));
}

TEST_P(PaymentCommandTest, TheClockHasAnEnd)
{
    const Box box = startIdle();
    Result last;
    for (int i = 0; i < 100 && last.status != 1; ++i)
        last = in(box, {"clock", "advance", "36500d"});
    EXPECT_THAT(last, failsWith(1, "the end of the year 9999"));
    EXPECT_THAT(in(box, {"clock"}).output, HasSubstr("advanced by"));
}

BOX_TEST_USERS(PaymentCommandTest);

} // namespace
