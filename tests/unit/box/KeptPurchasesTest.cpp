// SPDX-License-Identifier: Apache-2.0
#include "services/payment/KeptPurchases.h"
#include "services/payment/Subscription.h"

#include "common/Failure.h"

#include <gmock/gmock.h>

#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

using namespace tamobox;
using namespace testing;

namespace {

namespace fs = std::filesystem;

Purchase fullPurchase()
{
    Purchase purchase;
    purchase.number = 7;
    purchase.application = "a\"\\\n";
    purchase.goodId = "good";
    purchase.goodSku = "sku";
    purchase.licenseKey = "k\xc3\xa9y";
    purchase.metadata = "m";
    purchase.price = "$1";
    purchase.date = 1'234'567'890'123;
    purchase.subscription = SubscriptionTerms{7, 30, "$2"};
    purchase.canceledEnd = 1'234'999'999'999;
    return purchase;
}

std::string readFile(const fs::path& path)
{
    std::stringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

class KeptPurchasesTest : public Test
{
protected:
    void SetUp() override
    {
        std::string name = (fs::temp_directory_path() / "tamo-kept-XXXXXX").string();
        ASSERT_NE(mkdtemp(name.data()), nullptr);
        m_directory = name;
    }
    void TearDown() override { fs::remove_all(m_directory); }

    fs::path file(const char* name = "payments.json") const { return m_directory / name; }
    void write(const std::string& text) const { std::ofstream(file()) << text; }

    fs::path m_directory;
};

TEST_F(KeptPurchasesTest, WhatWasSavedIsLoaded)
{
    PaymentState state;
    state.ledger.put(fullPurchase());
    state.advanced = 42;
    KeptPurchases(m_directory).savePurchase(state, fullPurchase());
    std::string trouble;
    const PaymentState loaded = KeptPurchases(m_directory).load(trouble);
    EXPECT_EQ(trouble, "");
    EXPECT_EQ(loaded.advanced, 42);
    ASSERT_NE(loaded.ledger.find(7), nullptr);
    const Purchase& purchase = *loaded.ledger.find(7);
    EXPECT_EQ(purchase.application, fullPurchase().application);
    EXPECT_EQ(purchase.goodId, "good");
    EXPECT_EQ(purchase.goodSku, "sku");
    EXPECT_EQ(purchase.licenseKey, "k\xc3\xa9y");
    EXPECT_EQ(purchase.metadata, "m");
    EXPECT_EQ(purchase.price, "$1");
    EXPECT_EQ(purchase.date, 1'234'567'890'123);
    ASSERT_TRUE(purchase.subscription);
    EXPECT_EQ(purchase.subscription->initialPeriod, 7);
    EXPECT_EQ(purchase.subscription->renewalPeriod, 30);
    EXPECT_EQ(purchase.subscription->renewalPrice, "$2");
    EXPECT_EQ(purchase.canceledEnd, 1'234'999'999'999);
}

TEST_F(KeptPurchasesTest, TheFileIsTheUsersAloneAndNothingElseIsLeft)
{
    KeptPurchases(m_directory).saveClock({});
    KeptPurchases(m_directory).saveClock({});
    struct stat status = {};
    ASSERT_EQ(stat(file().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0600U);
    EXPECT_EQ(std::distance(fs::directory_iterator(m_directory), fs::directory_iterator()), 1);
}

TEST_F(KeptPurchasesTest, WithoutAFileThereIsNothing)
{
    std::string trouble;
    const PaymentState state = KeptPurchases(m_directory).load(trouble);
    EXPECT_EQ(trouble, "");
    EXPECT_THAT(state.ledger.all(), IsEmpty());
}

TEST_F(KeptPurchasesTest, ADamagedFileIsKeptAsideAndToldOf)
{
    PaymentState good;
    good.ledger.put(fullPurchase());
    const std::string whole = stateToText(good);
    const std::vector<std::string> damaged = {
        "",
        whole.substr(0, whole.size() / 2),
        "[]",
        R"({"format":2,"advanced":0,"purchases":[]})",
        R"({"format":1,"advanced":-1,"purchases":[]})",
        R"({"format":1,"advanced":0})",
        R"({"format":1,"advanced":0,"purchases":[{}]})",
    };
    for (std::size_t i = 0; i < damaged.size(); ++i) {
        write(damaged[i]);
        std::string trouble;
        EXPECT_THAT(KeptPurchases(m_directory).load(trouble).ledger.all(), IsEmpty());
        const std::string aside = "payments.json.damaged-" + std::to_string(i + 1);
        EXPECT_THAT(trouble, AllOf(HasSubstr("cannot be read"), HasSubstr(aside)));
        EXPECT_EQ(readFile(file(aside.c_str())), damaged[i]);
        EXPECT_FALSE(fs::exists(file()));
    }
}

TEST_F(KeptPurchasesTest, WhatNoPurchaseCanBeIsDamage)
{
    PaymentState good;
    good.ledger.put(fullPurchase());
    const std::string whole = stateToText(good);
    EXPECT_NO_THROW(stateFromText(whole));
    const std::pair<const char*, const char*> changes[] = {
        {"\"number\":7", "\"number\":2147483647"},
        {"\"number\":7", "\"number\":1000000001"},
        {"\"number\":7", "\"number\":0"},
        {"\"date\":1234567890123", "\"date\":253402300800000"},
        {"\"initialPeriod\":7", "\"initialPeriod\":36501"},
        {"\"renewalPeriod\":30", "\"renewalPeriod\":2147483647"},
        {"\"canceledEnd\":1234999999999", "\"canceledEnd\":506804601599998"},
    };
    for (const auto& [before, after] : changes) {
        std::string changed = whole;
        changed.replace(changed.find(before), std::string(before).size(), after);
        EXPECT_THROW(stateFromText(changed), Failure) << after;
    }
}

TEST_F(KeptPurchasesTest, TheLatestCancellationIsReadAgain)
{
    Purchase purchase = fullPurchase();
    purchase.number = Purchase::highestNumber;
    purchase.date = latestMoment;
    purchase.subscription = SubscriptionTerms{longestPeriod, longestPeriod, "$2"};
    purchase.canceledEnd.reset();
    purchase.canceledEnd = standingAt(purchase, latestMoment).end;
    PaymentState state;
    state.ledger.put(purchase);
    state.advanced = latestMoment;
    EXPECT_EQ(stateToText(stateFromText(stateToText(state))), stateToText(state));
}

TEST_F(KeptPurchasesTest, EveryTruncationIsDamage)
{
    PaymentState good;
    good.ledger.put(fullPurchase());
    const std::string whole = stateToText(good);
    for (std::size_t size = 0; size + 1 < whole.size(); ++size)
        EXPECT_THROW(stateFromText(whole.substr(0, size)), Failure) << size;
}

TEST_F(KeptPurchasesTest, WhatCannotBeSavedLeavesTheFileAsItWas)
{
    KeptPurchases store(m_directory);
    store.saveClock({});
    const std::string before = readFile(file());
    fs::create_directory(file("payments.json.new")); // in the way, also of root
    PaymentState changed;
    changed.advanced = 5;
    EXPECT_THROW(store.saveClock(changed), Failure);
    EXPECT_EQ(readFile(file()), before);
}

TEST_F(KeptPurchasesTest, AFileThatWouldBeTooLongTakesNoMorePurchases)
{
    PaymentState state;
    Purchase purchase = fullPurchase();
    purchase.canceledEnd.reset();
    purchase.metadata = std::string(8192, 'x');
    for (purchase.number = 1; stateToText(state).size() <= KeptPurchases::longestFile;
         ++purchase.number)
        state.ledger.put(purchase);
    state.ledger.remove(--purchase.number);
    KeptPurchases store(m_directory);
    Purchase last = *state.ledger.find(1);
    store.savePurchase(state, last);
    const std::string before = readFile(file());
    state.ledger.put(purchase);
    EXPECT_THROW(store.savePurchase(state, purchase), Failure);
    EXPECT_EQ(readFile(file()), before);
    store.saveClock(state);
    last.canceledEnd = last.date;
    state.ledger.put(last);
    EXPECT_NO_THROW(store.savePurchase(state, last));
}

TEST_F(KeptPurchasesTest, WhatIsNoFileIsRefused)
{
    fs::create_directory(file());
    std::string trouble;
    EXPECT_THROW(KeptPurchases(m_directory).load(trouble), Failure);
}

} // namespace
