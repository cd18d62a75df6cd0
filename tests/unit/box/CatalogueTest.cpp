// SPDX-License-Identifier: Apache-2.0
#include "services/payment/Catalogue.h"

#include "common/Failure.h"

#include <gmock/gmock.h>

using namespace tamobox;
using namespace testing;
using namespace std::chrono_literals;

namespace {

Catalogue parse(const std::string& text)
{
    return Catalogue::parse(text, "file");
}

std::string failureOf(const std::string& text)
{
    try {
        parse(text);
        return "taken";
    } catch (const Failure& failure) {
        return failure.what();
    }
}

/** A catalogue of one good, with more members. */
std::string with(const std::string& more)
{
    return R"({"goods":[{"id":"a","name":"A","price":"$1")" + (more.empty() ? "" : "," + more) +
           "}]}";
}

Policy policyIn(const std::string& policy)
{
    return parse(with(R"("policy":)" + policy)).goods().at(0).policy;
}

TEST(CatalogueTest, EveryMemberIsRead)
{
    const Catalogue catalogue =
        parse(with(R"("sku":"S","licenseKey":"K","subscription":{"initialPeriod":7,)"
                   R"("renewalPeriod":30,"renewalPrice":"$2"},"policy":{"answer":"never"})"));
    ASSERT_THAT(catalogue.goods(), SizeIs(1));
    const Good& good = catalogue.goods()[0];
    EXPECT_EQ(good.id, "a");
    EXPECT_EQ(good.sku, "S");
    EXPECT_EQ(good.name, "A");
    EXPECT_EQ(good.price, "$1");
    EXPECT_EQ(good.licenseKey, "K");
    ASSERT_TRUE(good.subscription);
    EXPECT_EQ(good.subscription->initialPeriod, 7);
    EXPECT_EQ(good.subscription->renewalPeriod, 30);
    EXPECT_EQ(good.subscription->renewalPrice, "$2");
    EXPECT_EQ(good.policy.who, Policy::Who::Nobody);
}

TEST(CatalogueTest, WhatMayBeMissingIsNone)
{
    const Good good = parse(with("")).goods().at(0);
    EXPECT_EQ(good.sku, "");
    EXPECT_EQ(good.licenseKey, "");
    EXPECT_FALSE(good.subscription);
    EXPECT_EQ(good.policy.who, Policy::Who::User);
}

TEST(CatalogueTest, PoliciesAreRead)
{
    EXPECT_EQ(policyIn(R"({"answer":"ask"})").who, Policy::Who::User);
    const Policy approval = policyIn(R"({"answer":"approve","after":"1.5s"})");
    EXPECT_EQ(approval.who, Policy::Who::Itself);
    EXPECT_EQ(approval.decision.kind, Decision::Kind::Approve);
    EXPECT_EQ(approval.delay, 1500ms);
    const Policy failure = policyIn(R"({"answer":"fail","code":17,"text":"No."})");
    EXPECT_EQ(failure.decision.kind, Decision::Kind::Fail);
    EXPECT_EQ(failure.decision.code, 17);
    EXPECT_EQ(failure.decision.text, "No.");
    EXPECT_EQ(failure.delay, 0ms);
    EXPECT_EQ(policyIn(R"({"answer":"decline"})").decision.code, 2);
    EXPECT_EQ(policyIn(R"({"answer":"cancel"})").decision.kind, Decision::Kind::Cancel);
    EXPECT_EQ(policyIn(R"({"answer":"garbage"})").decision.kind, Decision::Kind::Garbage);
}

TEST(CatalogueTest, OtherOperationsAreAnsweredUnlessItSaysOtherwise)
{
    const Catalogue plain = parse(with(""));
    EXPECT_EQ(plain.policyFor(Operation::Price).who, Policy::Who::Itself);
    EXPECT_EQ(plain.policyFor(Operation::Price).decision.kind, Decision::Kind::Approve);
    const Catalogue broken =
        parse(R"({"goods":[],"operations":{"price":{"answer":"fail","code":1,"text":"x"},)"
              R"("existingPurchases":{"answer":"never"}}})");
    EXPECT_EQ(broken.policyFor(Operation::Price).decision.kind, Decision::Kind::Fail);
    EXPECT_EQ(broken.policyFor(Operation::ExistingPurchases).who, Policy::Who::Nobody);
    EXPECT_EQ(broken.policyFor(Operation::CheckStatus).who, Policy::Who::Itself);
}

TEST(CatalogueTest, AGoodIsFoundByIdOrSkuOrBoth)
{
    const Catalogue catalogue =
        parse(R"({"goods":[{"id":"a","sku":"S","name":"A","price":"1"},)"
              R"({"id":"b","sku":"T","name":"B","price":"2"},{"id":"c","name":"C","price":"3"}]})");
    EXPECT_EQ(catalogue.find("a", "")->name, "A");
    EXPECT_EQ(catalogue.find("", "T")->name, "B");
    EXPECT_EQ(catalogue.find("a", "S")->name, "A");
    EXPECT_EQ(catalogue.find("a", "T"), nullptr);
    EXPECT_EQ(catalogue.find("c", "S"), nullptr);
    EXPECT_EQ(catalogue.find("", ""), nullptr);
    EXPECT_EQ(catalogue.find("S", ""), nullptr);
}

TEST(CatalogueTest, WhatIsNoJsonIsRefusedWithItsPlace)
{
    EXPECT_EQ(failureOf("{\n  \"goods\": [,]\n}"), "file: line 2, column 13: Invalid value.");
    EXPECT_EQ(failureOf(std::string("{\"goods\":[]}\0x", 14)),
              "file: line 1, column 13: There is a zero byte.");
    EXPECT_THAT(failureOf(""), StartsWith("file: line 1, column 1: "));
    EXPECT_THAT(failureOf("{\"goods\":[]} x"), StartsWith("file: line 1, column "));
    EXPECT_THAT(failureOf("{\"goods\":[{\"id\":\"\xff\"}]}"), StartsWith("file: line 1"));
    EXPECT_THAT(failureOf(std::string(100'000, '[')), StartsWith("file: line 1, column 100001"));
}

TEST(CatalogueTest, WhatIsWrongIsRefusedWithItsPath)
{
    EXPECT_EQ(failureOf("[]"), "file: the whole must be an object");
    EXPECT_EQ(failureOf("{}"), "file: goods is missing");
    EXPECT_EQ(failureOf(R"({"goods":{}})"), "file: goods must be an array");
    EXPECT_EQ(failureOf(R"({"goods":[1]})"), "file: goods[0] must be an object");
    EXPECT_EQ(failureOf(R"({"goods":[],"x":1})"),
              "file: x is not known here; there are: goods, operations");
    EXPECT_EQ(failureOf(R"({"goods":[{"id":"a","name":"A"}]})"), "file: goods[0].price is missing");
    EXPECT_EQ(failureOf(R"({"goods":[{"id":7,"name":"A","price":"1"}]})"),
              "file: goods[0].id must be a text");
    EXPECT_THAT(failureOf(with(R"("sku":"")")), HasSubstr("goods[0].sku must be a text of 1 to"));
    EXPECT_THAT(failureOf(with(R"("sku":"a\u0000b")")), HasSubstr("control characters"));
    EXPECT_THAT(failureOf(with(R"("sku":"a\u0085b")")), HasSubstr("control characters"));
    EXPECT_THAT(failureOf(with(R"("sku":"\udc00")")), Not(Eq("taken")));
    EXPECT_THAT(failureOf(with(R"("sku":"\ud800x")")), Not(Eq("taken")));
    EXPECT_THAT(failureOf(with(R"("price":"$2")")), HasSubstr("goods[0].price is there twice"));
    EXPECT_THAT(failureOf(R"({"goods":[{"id":"a","name":"A","price":"1"},)"
                          R"({"id":"a","name":"B","price":"2"}]})"),
                HasSubstr("goods[1].id is another good's already"));
    EXPECT_THAT(failureOf(R"({"goods":[],"operations":{"purchase":{"answer":"ask"}}})"),
                HasSubstr("operations.purchase is not known here"));
    EXPECT_THAT(failureOf(std::string(600'000, ' ')), HasSubstr("is longer than"));
}

TEST(CatalogueTest, WrongSubscriptionsAreRefused)
{
    const auto failure = [](const std::string& subscription) {
        return failureOf(with(R"("subscription":)" + subscription));
    };
    EXPECT_THAT(failure("7"), HasSubstr("goods[0].subscription must be an object"));
    EXPECT_THAT(failure("{}"), HasSubstr("initialPeriod is missing"));
    EXPECT_THAT(failure(R"({"initialPeriod":0})"), HasSubstr("whole number from 1 to 36500"));
    EXPECT_THAT(failure(R"({"initialPeriod":1.5})"), HasSubstr("whole number"));
    EXPECT_THAT(failure(R"({"initialPeriod":1,"renewalPeriod":1})"),
                HasSubstr("renewalPrice is missing"));
    EXPECT_THAT(failure(R"({"initialPeriod":1,"renewalPrice":"1"})"),
                HasSubstr("renewalPeriod is missing"));
}

TEST(CatalogueTest, WrongPoliciesAreRefused)
{
    const auto failure = [](const std::string& policy) {
        return failureOf(with(R"("policy":)" + policy));
    };
    EXPECT_THAT(failure(R"({"answer":"perhaps"})"), HasSubstr("policy.answer must be ask, "));
    EXPECT_THAT(failure("{}"), HasSubstr("policy.answer is missing"));
    EXPECT_THAT(failure(R"({"answer":"fail","text":"x"})"), HasSubstr("policy.code is missing"));
    EXPECT_THAT(failure(R"({"answer":"fail","code":1})"), HasSubstr("policy.text is missing"));
    EXPECT_THAT(failure(R"({"answer":"fail","code":0,"text":"x"})"), HasSubstr("whole number"));
    EXPECT_THAT(failure(R"({"answer":"approve","code":1})"), HasSubstr("code does not go with"));
    EXPECT_THAT(failure(R"({"answer":"never","after":"1s"})"), HasSubstr("after does not go"));
    EXPECT_THAT(failure(R"({"answer":"approve","after":"soon"})"), HasSubstr("a duration like"));
    EXPECT_THAT(failure(R"({"answer":"fail","code":1,"text":"paymentSuccess"})"),
                HasSubstr("all is well"));
    EXPECT_THAT(failure(R"({"answer":"fail","code":1,"text":")" + std::string(257, 'x') + "\"}"),
                HasSubstr("at most 256 bytes"));
}

TEST(CatalogueTest, TheBoxesOwnHasAGoodForEachAnswer)
{
    const Catalogue catalogue = Catalogue::builtin();
    EXPECT_EQ(catalogue.find("coins-100", "COINS100")->policy.who, Policy::Who::User);
    EXPECT_EQ(catalogue.find("garbage", "")->policy.decision.kind, Decision::Kind::Garbage);
    EXPECT_EQ(catalogue.find("never", "")->policy.who, Policy::Who::Nobody);
}

} // namespace
