// SPDX-License-Identifier: Apache-2.0
#include "services/payment/KeptPurchases.h"

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

TEST_F(KeptPurchasesTest, WhatIsNoFileIsRefused)
{
    fs::create_directory(file());
    std::string trouble;
    EXPECT_THROW(KeptPurchases(m_directory).load(trouble), Failure);
}

} // namespace
