// SPDX-License-Identifier: Apache-2.0
// The example examples/shop, whole, with services of the test's own.
#include "MailboxService.h"
#include "PrivatePps.h"

#include <QProcess>

#include <gtest/gtest.h>

#include <optional>
#include <sys/stat.h>

namespace {

constexpr int limit = 30'000; // milliseconds

class ShopTest : public testing::Test
{
protected:
    ShopTest()
    {
        for (const char* const directory :
             {"/pps/services", "/pps/services/paymentsystem", "/pps/services/dialog"})
            ::mkdir(directory, 0777);
        paymentSystem.emplace("services/paymentsystem/control");
        dialog.emplace("services/dialog/control");
        shop.setWorkingDirectory(TAMO_TEST_SHOP_PACKAGE);
    }
    ~ShopTest() override
    {
        if (shop.state() != QProcess::NotRunning) {
            shop.kill();
            shop.waitForFinished(limit);
        }
    }

    void start(const QStringList& arguments) { shop.start(TAMO_TEST_SHOP, arguments); }

    /** What it printed, and with which status it ended. */
    std::string end()
    {
        EXPECT_TRUE(shop.waitForFinished(limit));
        EXPECT_EQ(shop.exitStatus(), QProcess::NormalExit);
        return shop.readAllStandardOutput().toStdString() + std::to_string(shop.exitCode());
    }

    tamotest::PpsFilesystem filesystem;
    std::optional<tamotest::MailboxService> paymentSystem;
    std::optional<tamotest::MailboxService> dialog;
    QProcess shop;
};

TEST_F(ShopTest, BuysFromThePaymentSystem)
{
    start({"buy", "sword"});
    const QVariantMap request = paymentSystem->next();
    EXPECT_EQ(request.value("dat").toMap().value("purchaseAppID"), "com.example.shop.example0001");
    paymentSystem->answer({{"msg", "paymentSystemType"},
                           {"id", request.value("id")},
                           {"res", "paymentSystemSuccess"},
                           {"dat", QVariantMap{{"digitalGoodID", "sword"}, {"purchaseID", "7"}}}});
    EXPECT_EQ(end(), "bought: sword, purchase 7\n0");
}

TEST_F(ShopTest, SaysWhatItIsNotTold)
{
    start({"buy", "sword"});
    const QVariant id = paymentSystem->next().value("id");
    paymentSystem->answer(
        {{"msg", "x"}, {"id", id}, {"res", "somethingNew"}, {"dat", QVariantMap{{"a", 1}}}});
    EXPECT_EQ(end(), "the payment system does not say what was bought\n1");
}

TEST_F(ShopTest, TellsARefusal)
{
    start({"price", "sword"});
    const QVariant id = paymentSystem->next().value("id");
    paymentSystem->answer({{"msg", "getPriceType"},
                           {"id", id},
                           {"res", "getPriceFailure"},
                           {"dat", QVariantMap{{"errorID", 3}, {"errorText", "no such good"}}}});
    EXPECT_EQ(end(), "error 3: no such good\n1");
}

TEST_F(ShopTest, BuysInTestMode)
{
    start({"--test", "buy", "sword"});
    const QVariantMap answer = {{"errorSelection", "paymentSuccess"},
                                {"responseBtnLabel", "confirmpurchase.buynow"},
                                {"purchaseID", "test"}};
    const QVariant id = dialog->next().value("id");
    dialog->answer({{"msg", "show"},
                    {"id", id},
                    {"res", "shown"},
                    {"dat", QVariantMap{{"resp_obj", answer}}}});
    EXPECT_EQ(end(), "bought: sword, purchase test\n0");
}

TEST_F(ShopTest, EndsWithAnErrorWithoutAManifest)
{
    shop.setWorkingDirectory("/");
    start({"list"});
    EXPECT_EQ(end(), "1");
    EXPECT_TRUE(shop.readAllStandardError().contains("app/META-INF/MANIFEST.MF"));
}

} // namespace
