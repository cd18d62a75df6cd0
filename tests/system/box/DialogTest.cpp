// SPDX-License-Identifier: Apache-2.0
#include "PaymentTest.h"

#include <signal.h>

using namespace boxtest;
using namespace testing;

namespace {

constexpr const char* mailbox = "services/dialog/control";

class DialogTest : public ClientTest
{
protected:
    DialogTest() : ClientTest(mailbox) {}

    static std::string show(const std::string& id, const std::string& good)
    {
        return "msg::show\nid::" + id +
               R"(
dat:json:{"className":"ule.dialog::PurchaseConfirmDialog","desc_obj":{"bkgAlpha":0.5,)"
               R"("messageText":"","titleText":"Edit Payment Options: Paypal","size":"tall",)"
               R"("errorText":"","buttons":[{"label":"confirmpurchase.cancel"},)"
               R"({"label":"confirmpurchase.buynow","context":{"digitalGoodID":")" +
               good +
               R"(","digitalGoodSKU":"","digitalGoodName":"A thing","metaData":"meta"}}],)"
               R"("groupId":"g","cid":"1","price":"$3.99","tax":"0","total":"$3.99",)"
               R"("currency":"CAD","testingMode":"true","chosenOption":"PAYPAL","type":"a@b",)"
               R"("vendor":"A shop","name":"A shop","iconURL":"icon.png"}})"
               "\n";
    }

    std::string answerTo(const Box& box, const std::string& request) const
    {
        return in(box, {"pps", "set", mailbox, "-", "--wait", "15s"}, request).output;
    }
};

TEST_P(DialogTest, IsShownAndBought)
{
    const Box box = startIdle();
    Client client = startClient(box, {show("3", "whatever")});
    EXPECT_THAT(in(box, {"payment", "list", "--json"}).output,
                AllOf(HasSubstr(R"("kind":"dialog")"), HasSubstr(R"("digitalGoodName":"A thing")"),
                      HasSubstr(R"("titleText":"Edit Payment Options: Paypal")"),
                      HasSubstr(R"("total":"$3.99")"), HasSubstr(R"("currency":"CAD")")));
    EXPECT_THAT(in(box, {"payment"}).output, AllOf(HasSubstr("dialog"), HasSubstr("  $3.99  ")));
    const std::string shown = in(box, {"payment", "show"}).output;
    EXPECT_THAT(shown, HasSubstr("\ndialog.className     ule.dialog::PurchaseConfirmDialog\n"));
    EXPECT_THAT(shown, HasSubstr("\ndialog.titleText     Edit Payment Options: Paypal\n"));
    EXPECT_THAT(shown, HasSubstr("\ndialog.bkgAlpha      0.5\n"));
    EXPECT_THAT(shown, HasSubstr("\ndialog.buttons       confirmpurchase.cancel | "
                                 "confirmpurchase.buynow\n"));
    EXPECT_THAT(in(box, {"payment", "show", "--request", "1", "--json"}).output,
                HasSubstr(R"("buttons":["confirmpurchase.cancel","confirmpurchase.buynow"])"));
    EXPECT_THAT(in(box, {"payment", "show", "--request", "2"}),
                failsWith(1, "no request 2 is waiting"));
    EXPECT_THAT(in(box, {"payment", "approve"}), succeeds());
    EXPECT_TRUE(client.heard(
        R"(id::3 res::ok dat:json:{"resp_obj":{"errorSelection":"paymentSuccess",)"
        R"("responseBtnLabel":"confirmpurchase.buynow","purchaseID":"test-purchase-1",)"
        R"("itemState":"0"}})"));
    EXPECT_EQ(in(box, {"payment", "purchases", "--json"}).output, "[]\n"); // it was a test
}

TEST_P(DialogTest, IsCanceledAndFails)
{
    const Box box = startIdle();
    Client client = startClient(box, {show("1", "whatever"), show("2", "whatever")});
    EXPECT_THAT(in(box, {"payment", "cancel"}), succeeds());
    EXPECT_TRUE(client.heard(R"("errorSelection":"paymentSuccess",)"
                             R"("responseBtnLabel":"confirmpurchase.cancel"}})"));
    EXPECT_THAT(in(box, {"payment", "fail", "No money."}), succeeds());
    EXPECT_TRUE(client.heard(R"(dat:json:{"resp_obj":{"errorSelection":"No money."}})"));
}

TEST_P(DialogTest, FollowsTheCatalogue)
{
    const Box box = startIdle();
    EXPECT_THAT(
        answerTo(box, show("1", "approved-subscription")),
        AllOf(HasSubstr(R"("itemState":"1","startDate":)"), HasSubstr(R"("initialPeriod":"7")")));
    EXPECT_THAT(answerTo(box, show("2", "declined")), HasSubstr("The payment was declined."));
    EXPECT_EQ(answerTo(box, show("3", "garbage")), "@control\ngarbage::}{\nres:n:42\n");
}

TEST_P(DialogTest, SharesTheQueueWithThePaymentSystem)
{
    const Box box = startIdle();
    Client client = startClient(box, {show("1", "whatever")});
    EXPECT_THAT(in(box, {"payment", "list", "--json"}).output, HasSubstr("\"request\":1"));
    EXPECT_THAT(in(box, {"payment", "approve", "--json"}).output, HasSubstr("\"purchaseID\":\"\""));
    EXPECT_TRUE(client.heard("confirmpurchase.buynow"));
}

TEST_P(DialogTest, OthersAreRefusedAndToldOf)
{
    const Box box = startIdle();
    EXPECT_THAT(
        answerTo(box, "msg::show\nid::1\ndat:json:{\"className\":\"alert\",\"desc_obj\":{}}\n"),
        HasSubstr("there is no dialog 'alert'"));
    EXPECT_THAT(answerTo(box, "msg::hide\nid::1\n"), HasSubstr("there is no request 'hide'"));
    EXPECT_THAT(answerTo(box, "msg::show\nid::1\ndat::text\n"), HasSubstr("dat must be an object"));
    std::string real = show("1", "approved");
    real.replace(real.find("\"testingMode\":\"true\""), 20, "\"testingMode\":\"false\"");
    EXPECT_THAT(answerTo(box, real), HasSubstr("testingMode must be 'true'"));
    const Client client = startClient(box, {"msg::show\ndat:json:{}\n"});
    EXPECT_TRUE(box.launcher->complained("services/dialog/control has no effect: id must be"));
    EXPECT_TRUE(box.launcher->complained("was refused: The request is malformed: "));
}

TEST_P(DialogTest, GoesOnWithTheNextService)
{
    const Box box = startIdle();
    Client client = startClient(box, {show("6", "whatever")});
    EXPECT_THAT(in(box, {"payment", "list", "--json"}).output, HasSubstr("\"request\":1"));
    box.signal("payment-service", SIGKILL);
    EXPECT_TRUE(box.launcher->complained("goes on with 1 requests that wait\n"));
    EXPECT_THAT(in(box, {"payment", "approve"}), succeeds());
    EXPECT_TRUE(client.heard("id::6 res::ok"));
}

BOX_TEST_USERS(DialogTest);

} // namespace
