// SPDX-License-Identifier: Apache-2.0
#include "services/payment/PaymentSystem.h"

#include "common/Failure.h"

#include <gmock/gmock.h>

using namespace tamobox;
using namespace testing;

namespace {

constexpr Moment begin = 1'000'000'000'000;

/** A store that counts, and fails on request. */
class FakeStore : public PurchaseStore
{
public:
    PaymentState load(std::string&) override { return {}; }
    void savePurchase(const PaymentState& state, const Purchase& purchase) override
    {
        if (fails)
            throw Failure("the disk is full");
        EXPECT_NE(state.ledger.find(purchase.number), nullptr);
        ++saved;
    }
    void saveClock(const PaymentState&) override
    {
        if (fails)
            throw Failure("the disk is full");
    }

    bool fails = false;
    int saved = 0;
};

class PaymentSystemTest : public Test
{
protected:
    PaymentRequest request(Operation operation, const char* good = "")
    {
        PaymentRequest request;
        request.number = ++m_number;
        request.operation = operation;
        request.applicationId = "app";
        request.goodId = good;
        request.metadata = "meta";
        if (const Good* const found = m_catalogue.find(good, ""))
            request.good = *found;
        return request;
    }

    std::vector<Purchase> existing(const char* application)
    {
        PaymentRequest asked = request(Operation::ExistingPurchases);
        asked.applicationId = application;
        return system.carryOut(asked, begin).purchases;
    }

    Catalogue m_catalogue = Catalogue::builtin();
    int m_number = 0;
    FakeStore store;
    PaymentSystem system{store, {}};
};

TEST_F(PaymentSystemTest, WhatIsBoughtIsRecordedAndListed)
{
    const PaymentAnswer answer =
        system.carryOut(request(Operation::Purchase, "full-version"), begin);
    ASSERT_FALSE(answer.error);
    ASSERT_THAT(answer.purchases, SizeIs(1));
    EXPECT_EQ(answer.purchases[0].licenseKey, "TAMO-FULL-0001");
    EXPECT_EQ(answer.purchases[0].metadata, "meta");
    EXPECT_EQ(answer.purchases[0].goodSku, "FULL");
    EXPECT_EQ(answer.purchases[0].date, begin);
    EXPECT_EQ(store.saved, 1);
    EXPECT_THAT(existing("app"), SizeIs(1));
    EXPECT_THAT(existing("other"), IsEmpty());
}

TEST_F(PaymentSystemTest, ARequestIsCarriedOutOnce)
{
    const PaymentRequest purchase = request(Operation::Purchase, "coins-100");
    const PaymentAnswer first = system.carryOut(purchase, begin);
    const PaymentAnswer again = system.carryOut(purchase, begin + 5);
    EXPECT_EQ(again.purchases.at(0).id(), first.purchases.at(0).id());
    EXPECT_EQ(again.purchases.at(0).date, begin);
    EXPECT_EQ(store.saved, 1);
    EXPECT_THAT(existing("app"), SizeIs(1));
}

TEST_F(PaymentSystemTest, WhatCannotBeRecordedIsNotBought)
{
    store.fails = true;
    EXPECT_THROW(system.carryOut(request(Operation::Purchase, "coins-100"), begin), Failure);
    EXPECT_THAT(existing("app"), IsEmpty());
    EXPECT_THROW(system.advanceClock(5), Failure);
    EXPECT_EQ(system.state().advanced, 0);
}

TEST_F(PaymentSystemTest, UnknownGoodsAreErrors)
{
    for (const Operation operation :
         {Operation::Purchase, Operation::Price, Operation::CheckStatus})
        EXPECT_EQ(system.carryOut(request(operation, "nothing"), begin).error->code, 3);
    EXPECT_EQ(store.saved, 0);
}

TEST_F(PaymentSystemTest, ASubscriptionIsBoughtOnceUntilItIsCanceled)
{
    const PaymentAnswer first = system.carryOut(request(Operation::Purchase, "magazine"), begin);
    EXPECT_EQ(system.carryOut(request(Operation::Purchase, "magazine"), begin).error->code, 4);
    PaymentRequest cancel = request(Operation::CancelSubscription);
    cancel.purchaseId = first.purchases.at(0).id();
    EXPECT_FALSE(system.carryOut(cancel, begin).error);
    EXPECT_FALSE(system.carryOut(request(Operation::Purchase, "magazine"), begin).error);
}

TEST_F(PaymentSystemTest, TheStatusFollowsTheClock)
{
    system.carryOut(request(Operation::Purchase, "day-pass"), begin);
    const PaymentRequest check = request(Operation::CheckStatus, "day-pass");
    EXPECT_TRUE(system.carryOut(check, begin).subscriptionExists);
    EXPECT_FALSE(system.carryOut(check, begin + millisecondsOfADay).subscriptionExists);
    PaymentRequest others = check;
    others.applicationId = "other";
    EXPECT_FALSE(system.carryOut(others, begin).subscriptionExists);
    EXPECT_FALSE(
        system.carryOut(request(Operation::CheckStatus, "coins-100"), begin).subscriptionExists);
}

TEST_F(PaymentSystemTest, WhatWasBoughtCountsWithoutItsGood)
{
    system.carryOut(request(Operation::Purchase, "magazine"), begin);
    PaymentRequest check = request(Operation::CheckStatus, "magazine");
    check.good.reset();
    EXPECT_TRUE(system.carryOut(check, begin).subscriptionExists);
}

TEST_F(PaymentSystemTest, ASubscriptionRunsOnUnderAnotherSku)
{
    PaymentRequest purchase = request(Operation::Purchase, "magazine");
    purchase.good->sku = "OLD";
    system.carryOut(purchase, begin);
    PaymentRequest check = request(Operation::CheckStatus, "magazine");
    check.goodSku = check.good->sku;
    EXPECT_TRUE(system.carryOut(check, begin).subscriptionExists);
    EXPECT_EQ(system.carryOut(request(Operation::Purchase, "magazine"), begin).error->code, 4);
}

TEST_F(PaymentSystemTest, ACancellationLetsThePeriodEnd)
{
    const PaymentAnswer bought = system.carryOut(request(Operation::Purchase, "magazine"), begin);
    PaymentRequest cancel = request(Operation::CancelSubscription);
    cancel.purchaseId = bought.purchases.at(0).id();
    const Moment inTheSecond = begin + 8 * millisecondsOfADay;
    EXPECT_EQ(system.carryOut(cancel, inTheSecond).purchaseId, cancel.purchaseId);
    EXPECT_EQ(existing("app").at(0).canceledEnd, begin + 37 * millisecondsOfADay);
    EXPECT_FALSE(system.carryOut(cancel, inTheSecond).error);
    EXPECT_EQ(store.saved, 2);
    EXPECT_EQ(system.carryOut(cancel, begin + 37 * millisecondsOfADay).error->code, 6);
}

TEST_F(PaymentSystemTest, OnlyOnesOwnRunningSubscriptionsAreCanceled)
{
    const PaymentAnswer coins = system.carryOut(request(Operation::Purchase, "coins-100"), begin);
    const PaymentAnswer magazine = system.carryOut(request(Operation::Purchase, "magazine"), begin);
    PaymentRequest cancel = request(Operation::CancelSubscription);
    cancel.purchaseId = coins.purchases.at(0).id();
    EXPECT_EQ(system.carryOut(cancel, begin).error->code, 6);
    cancel.purchaseId = "nothing";
    EXPECT_EQ(system.carryOut(cancel, begin).error->code, 5);
    cancel.purchaseId = magazine.purchases.at(0).id();
    cancel.applicationId = "other";
    EXPECT_EQ(system.carryOut(cancel, begin).error->code, 5);
}

} // namespace
