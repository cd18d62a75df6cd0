// SPDX-License-Identifier: Apache-2.0
#include "services/payment/Subscription.h"
#include "services/payment/Ledger.h"

#include <gmock/gmock.h>

using namespace tamobox;
using namespace testing;

namespace {

constexpr Moment day = millisecondsOfADay;
constexpr Moment begin = 1'000'000'000'000;

Purchase subscription(int number, int initial, int renewal)
{
    Purchase purchase;
    purchase.number = number;
    purchase.application = "app";
    purchase.goodId = "good";
    purchase.goodSku = "sku";
    purchase.date = begin;
    purchase.subscription = SubscriptionTerms{initial, renewal, renewal == 0 ? "" : "$1"};
    return purchase;
}

void expectStanding(const Purchase& purchase, Moment now, ItemState state, Moment end)
{
    const Standing standing = standingAt(purchase, now);
    EXPECT_EQ(standing.state, state) << "after " << (now - begin) / day << " days";
    EXPECT_EQ(standing.end, end) << "after " << (now - begin) / day << " days";
}

TEST(SubscriptionTest, WhatIsBoughtForGoodStays)
{
    Purchase purchase;
    purchase.date = begin;
    EXPECT_EQ(standingAt(purchase, begin + 1000 * day).state, ItemState::Owned);
    EXPECT_FALSE(isRunning(purchase, begin));
}

TEST(SubscriptionTest, ItRenewsPeriodByPeriod)
{
    const Purchase purchase = subscription(1, 7, 30);
    expectStanding(purchase, begin, ItemState::Initial, begin + 7 * day);
    expectStanding(purchase, begin - 1, ItemState::Initial, begin + 7 * day);
    expectStanding(purchase, begin + 7 * day - 1, ItemState::Initial, begin + 7 * day);
    expectStanding(purchase, begin + 7 * day, ItemState::Renewed, begin + 37 * day);
    expectStanding(purchase, begin + 37 * day - 1, ItemState::Renewed, begin + 37 * day);
    expectStanding(purchase, begin + 37 * day, ItemState::Renewed, begin + 67 * day);
    EXPECT_TRUE(isRunning(purchase, latestMoment));
}

TEST(SubscriptionTest, WithoutRenewalItEnds)
{
    const Purchase purchase = subscription(1, 1, 0);
    expectStanding(purchase, begin + day - 1, ItemState::Initial, begin + day);
    expectStanding(purchase, begin + day, ItemState::Ended, begin + day);
    EXPECT_FALSE(isRunning(purchase, begin + day));
}

TEST(SubscriptionTest, CanceledItRunsToItsEnd)
{
    Purchase purchase = subscription(1, 7, 30);
    purchase.canceledEnd = begin + 37 * day;
    expectStanding(purchase, begin + 37 * day - 1, ItemState::Canceled, begin + 37 * day);
    EXPECT_TRUE(isRunning(purchase, begin + 37 * day - 1));
    expectStanding(purchase, begin + 37 * day, ItemState::Ended, begin + 37 * day);
}

TEST(LedgerTest, PurchasesBelongToTheirApplication)
{
    Ledger ledger;
    ledger.put(subscription(2, 7, 7));
    Purchase other = subscription(1, 7, 7);
    other.application = "other";
    ledger.put(other);
    ASSERT_THAT(ledger.of("app"), SizeIs(1));
    EXPECT_EQ(ledger.of("app")[0]->number, 2);
    EXPECT_THAT(ledger.of("nobody"), IsEmpty());
    EXPECT_EQ(ledger.findOf("app", "purchase-2")->number, 2);
    EXPECT_EQ(ledger.findOf("app", "purchase-1"), nullptr);
    EXPECT_EQ(ledger.findOf("other", "purchase-1")->number, 1);
    for (const char* id : {"2", "purchase-02", "purchase-2 ", "purchase-", "purchase", "",
                           "purchase--2", "purchase-99999999999999999999", "PURCHASE-2"})
        EXPECT_EQ(ledger.findOf("app", id), nullptr) << id;
}

TEST(LedgerTest, ARunningSubscriptionIsFoundByIdOrSku)
{
    Ledger ledger;
    Purchase purchase = subscription(1, 7, 0);
    ledger.put(purchase);
    const auto isFound = [&](const char* id, const char* sku, Moment now, bool mayBeCanceled) {
        return ledger.runningOf("app", id, sku, now, mayBeCanceled) != nullptr;
    };
    EXPECT_TRUE(isFound("good", "", begin, true));
    EXPECT_TRUE(isFound("good", "sku", begin, true));
    EXPECT_TRUE(isFound("", "sku", begin, true));
    EXPECT_FALSE(isFound("", "", begin, true));
    EXPECT_FALSE(isFound("good", "other", begin, true));
    EXPECT_FALSE(isFound("good", "", begin + 7 * day, true));
    purchase.canceledEnd = begin + 7 * day;
    ledger.put(purchase);
    EXPECT_TRUE(isFound("good", "", begin, true));
    EXPECT_FALSE(isFound("good", "", begin, false));
}

} // namespace
