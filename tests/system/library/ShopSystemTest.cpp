// SPDX-License-Identifier: Apache-2.0
// The example examples/shop in real boxes: every request, in both modes, with the box's own
// services.
#include "BoxTest.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace boxtest;
using namespace testing;

namespace {

using Arguments = std::vector<std::string>;

// A package that the application is started in. Whatever comes behind is the application.
const std::string inAPackage =
    "package=$(mktemp -d) && mkdir -p $package/app/META-INF && cd $package && "
    "printf 'Package-Name: com.example.%s\nPackage-Id: 1\n' \"$1\" >app/META-INF/MANIFEST.MF && "
    "shift && \"$@\"; status=$?; rm -r $package; exit $status";

class ShopSystemTest : public BoxTest
{
protected:
    /** Starts the shop in a box; its package has such a name. */
    std::unique_ptr<Process> shop(const Box& box, const Arguments& arguments,
                                  const std::string& package = "shop") const
    {
        Arguments command = {"exec", "--box",    box.name, "--",    "sh",
                             "-c",   inAPackage, "sh",     package, helper("tamo-test-shop")};
        command.insert(command.end(), arguments.begin(), arguments.end());
        return std::make_unique<Process>(tamoBox(command), GetParam());
    }

    /** What the shop prints, and the status that it ends with. */
    static std::string end(Process& process)
    {
        const int status = process.wait();
        EXPECT_EQ(process.errors(), "");
        return process.output() + std::to_string(status);
    }

    /** The same, of a shop that nobody needs to decide about. */
    std::string asked(const Box& box, const Arguments& arguments,
                      const std::string& package = "shop") const
    {
        return end(*shop(box, arguments, package));
    }

    /** The same, of one about which a command decides. */
    std::string decided(const Box& box, const std::string& decision,
                        const Arguments& arguments) const
    {
        const auto process = shop(box, arguments);
        EXPECT_THAT(in(box, {"payment", decision, "--wait", "20s"}), succeeds());
        return end(*process);
    }

    /** When the box's only subscription ends, as the shop prints it. */
    std::string subscriptionsEnd(const Box& box) const
    {
        const std::string json = in(box, {"payment", "purchases", "--json"}).output;
        const QJsonArray purchases =
            QJsonDocument::fromJson(QByteArray::fromStdString(json)).array();
        for (const auto& purchase : purchases)
            if (purchase.toObject().contains("endDate"))
                return QDateTime::fromMSecsSinceEpoch(
                           static_cast<qint64>(purchase.toObject()["endDate"].toDouble()))
                    .toString(Qt::ISODate)
                    .toStdString();
        return {};
    }
};

TEST_P(ShopSystemTest, SellsInProduction)
{
    const Box box = startIdle();
    EXPECT_EQ(asked(box, {"price", "coins-100"}), "coins-100 costs $1.99\n0");
    EXPECT_EQ(asked(box, {"terms", "magazine"}),
              "magazine costs $0.99 for 7 days, then $2.99 for each 30 days\n0");
    EXPECT_EQ(asked(box, {"price", "nothing"}), "error 3: There is no such digital good.\n1");
    EXPECT_EQ(decided(box, "cancel", {"buy", "magazine"}),
              "error 1: The purchase was canceled.\n1");
    EXPECT_EQ(asked(box, {"status", "magazine"}), "magazine is not subscribed\n0");
    const auto garbage = shop(box, {"buy", "garbage"});
    EXPECT_EQ(garbage->wait(), 1);
    EXPECT_EQ(garbage->output(), "");
    EXPECT_THAT(garbage->errors(), HasSubstr("cannot be understood"));
}

TEST_P(ShopSystemTest, ASubscriptionIsBoughtRenewedAndCancelled)
{
    const Box box = startIdle();
    const std::string bought = decided(box, "approve", {"buy", "magazine"});
    const std::string id = in(box, {"payment", "purchases", "--json"}).output;
    const std::size_t begin = id.find("purchase-");
    const std::string purchase = id.substr(begin, id.find('"', begin) - begin);
    const std::string receipt = "magazine, purchase " + purchase + ", until ";
    const std::string initialEnd = subscriptionsEnd(box);
    EXPECT_EQ(bought, "bought: " + receipt + initialEnd + "\n0");
    EXPECT_EQ(asked(box, {"status", "magazine"}), "magazine is subscribed\n0");
    EXPECT_EQ(asked(box, {"list"}), "1 purchases\n" + receipt + initialEnd + "\n0");
    EXPECT_EQ(asked(box, {"buy", "magazine"}), "error 4: The subscription exists already.\n1");
    EXPECT_THAT(in(box, {"clock", "advance", "8d"}), succeeds());
    const std::string renewedEnd = subscriptionsEnd(box);
    EXPECT_NE(renewedEnd, initialEnd);
    EXPECT_EQ(asked(box, {"list"}), "1 purchases\n" + receipt + renewedEnd + "\n0");
    EXPECT_EQ(asked(box, {"cancel", purchase}, "other"), "error 5: There is no such purchase.\n1");
    EXPECT_EQ(asked(box, {"cancel", purchase}), purchase + " is cancelled\n0");
    EXPECT_THAT(in(box, {"clock", "advance", "60d"}), succeeds());
    EXPECT_EQ(asked(box, {"status", "magazine"}), "magazine is not subscribed\n0");
}

TEST_P(ShopSystemTest, SellsInTestMode)
{
    const Box box = startIdle();
    EXPECT_EQ(asked(box, {"--test", "price", "sword"}), "sword costs $1.99\n0");
    EXPECT_EQ(asked(box, {"--test", "terms", "sword"}),
              "sword costs $1.99 for 7 days, then $.99 for each 14 days\n0");
    EXPECT_EQ(asked(box, {"--test", "status", "sword"}), "sword is subscribed\n0");
    EXPECT_EQ(asked(box, {"--test", "cancel", "7"}), "7 is cancelled\n0");
    EXPECT_EQ(asked(box, {"--test", "list"}), "0 purchases\n0");
    EXPECT_EQ(decided(box, "cancel", {"--test", "buy", "sword"}),
              "error 3: Purchase was canceled.\n1");
    EXPECT_THAT(decided(box, "approve", {"--test", "buy", "sword"}),
                MatchesRegex("bought: sword, purchase [^ ]+\n0"));
    EXPECT_THAT(decided(box, "approve", {"--test", "buy", "magazine"}),
                MatchesRegex("bought: magazine, purchase [^ ]+, until 20[^ ]+\n0"));
    EXPECT_EQ(in(box, {"payment", "purchases"}).output, "nothing was bought\n");
}

TEST_P(ShopSystemTest, AnswersToEqualIdsDoNotCross)
{
    const Box box = startIdle();
    const auto first = shop(box, {"buy", "coins-100"}, "first");
    ASSERT_TRUE(waitUntil([&] {
        return in(box, {"payment", "list", "--json"}).output.find("first") != std::string::npos;
    }));
    const auto second = shop(box, {"buy", "full-version"}, "second");
    ASSERT_TRUE(waitUntil([&] {
        return in(box, {"payment", "list", "--json"}).output.find("second") != std::string::npos;
    }));
    EXPECT_THAT(in(box, {"payment", "approve", "--request", "2"}), succeeds());
    EXPECT_EQ(end(*second), "bought: full-version, purchase purchase-2\n0");
    EXPECT_THAT(in(box, {"payment", "cancel"}), succeeds());
    EXPECT_EQ(end(*first), "error 1: The purchase was canceled.\n1");
    EXPECT_EQ(asked(box, {"list"}, "first"), "0 purchases\n0");
    EXPECT_EQ(asked(box, {"list"}, "second"), "1 purchases\nfull-version, purchase purchase-2\n0");
}

BOX_TEST_USERS(ShopSystemTest);

} // namespace
