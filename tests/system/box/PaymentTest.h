// SPDX-License-Identifier: Apache-2.0
#ifndef BOXTEST_PAYMENTTEST_H
#define BOXTEST_PAYMENTTEST_H

#include "ClientTest.h"

#include <stdlib.h>

#include <filesystem>
#include <fstream>

namespace boxtest {

/** Tests of the payment service. */
class PaymentTest : public ClientTest
{
protected:
    PaymentTest() : ClientTest("services/paymentsystem/control") {}

    void SetUp() override
    {
        ClientTest::SetUp();
        std::string name = (std::filesystem::temp_directory_path() / "tamo-pay-XXXXXX").string();
        ASSERT_NE(mkdtemp(name.data()), nullptr);
        m_directory = name;
        std::filesystem::permissions(m_directory, std::filesystem::perms::all); // for every user
    }

    void TearDown() override
    {
        std::filesystem::remove_all(m_directory);
        ClientTest::TearDown();
    }

    /** A directory of the test's own, for every user. */
    const std::filesystem::path& directory() const { return m_directory; }

    /** Writes a file there. */
    std::string fileWith(const std::string& text) const
    {
        const std::string path = m_directory / "catalogue.json";
        std::ofstream(path) << text;
        return path;
    }

    static std::string message(const std::string& type, const std::string& id,
                               const std::string& dat)
    {
        return "msg::" + type + "\nid::" + id + "\ndat:json:{" + dat + "}\n";
    }

    static std::string purchase(const std::string& id, const std::string& good,
                                const std::string& application = "app.1")
    {
        return message("paymentSystemType", id,
                       goodMembers(good) +
                           R"(,"digitalGoodName":"","metaData":"meta","purchaseAppName":"A shop",)"
                           R"("purchaseAppIcon":"icon.png","uiGroupID":"g","purchaseAppID":")" +
                           application + '"');
    }

    static std::string existing(const std::string& id, const std::string& application = "app.1",
                                const std::string& allowRefresh = "true")
    {
        return message("getExistingPurchasesType", id,
                       R"("uiGroupID":"g","purchaseAppID":")" + application +
                           R"(","allowRefresh":)" + allowRefresh);
    }

    static std::string price(const std::string& id, const std::string& good)
    {
        return message("getPriceType", id,
                       goodMembers(good) + R"(,"purchaseAppID":"app.1","uiGroupID":"g")");
    }

    static std::string status(const std::string& id, const std::string& good,
                              const std::string& application = "app.1")
    {
        return message("checkExistingType", id,
                       goodMembers(good) + R"(,"uiGroupID":"g","purchaseAppID":")" + application +
                           '"');
    }

    static std::string cancellation(const std::string& id, const std::string& purchaseId,
                                    const std::string& application = "app.1")
    {
        return message("cancelSubscriptionType", id,
                       R"("purchaseID":")" + purchaseId + R"(","uiGroupID":"g","purchaseAppID":")" +
                           application + '"');
    }

    /** A request as sendMany() takes it. */
    static std::string forPrintf(std::string request)
    {
        for (std::size_t at = request.find('\n'); at != std::string::npos; at = request.find('\n'))
            request.replace(at, 1, "\\n");
        return request;
    }

    /** The answer to a request of a process of its own. */
    std::string answerTo(const Box& box, const std::string& request) const
    {
        return in(box, {"pps", "set", "services/paymentsystem/control", "-", "--wait", "15s"},
                  request)
            .output;
    }

    std::string purchasesAsJson(const Box& box) const
    {
        return in(box, {"payment", "purchases", "--json"}).output;
    }

private:
    static std::string goodMembers(const std::string& good)
    {
        return R"("digitalGoodID":")" + good + R"(","digitalGoodSKU":"")";
    }

    std::filesystem::path m_directory;
};

} // namespace boxtest

#endif
