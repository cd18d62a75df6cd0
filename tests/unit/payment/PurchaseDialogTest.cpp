// SPDX-License-Identifier: Apache-2.0
#include "platform/payment/PurchaseDialog.h"

#include "platform/payment/MessageWriter.h"
#include "platform/payment/ServiceDescriptor.h"

#include <tamo/Exception.h>

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <sys/socket.h>
#include <unistd.h>

using tamo::platform::PurchaseDialog;
using tamo::platform::ServiceDescriptor;

namespace {

class PurchaseDialogTest : public testing::Test
{
protected:
    PurchaseDialog::Outcome outcome(const std::string& answer) const
    {
        return dialog.outcome(answer.data(), answer.size());
    }

    /** What comes of an answer with such a "resp_obj". */
    PurchaseDialog::Outcome closed(const std::string& object) const
    {
        return outcome("@control\nid::9\nres::x\ndat:json:{\"resp_obj\":{" + object + "}}\n");
    }

    static std::string described(const PurchaseDialog::Outcome& outcome)
    {
        return std::to_string(outcome.errorCode) + " " + outcome.errorText.toStdString() +
               (outcome.receipt ? " receipt" : "");
    }

    const PurchaseDialog dialog = {"good", "sku", "name", "meta", "app", "icon", "group", 9};
};

TEST_F(PurchaseDialogTest, IsDescribedInFull)
{
    std::array<int, 2> ends = {};
    ASSERT_EQ(::pipe(ends.data()), 0);
    const ServiceDescriptor out(ends[0]);
    const ServiceDescriptor in(ends[1]);
    tamo::platform::MessageWriter writer;
    dialog.writeTo(writer);
    writer.writeTo(in);
    std::string text(4096, '\0');
    text.resize(static_cast<std::size_t>(out.read(text.data(), text.size())));
    EXPECT_EQ(text, "msg::show\nid::9\n"
                    R"(dat:json:{"className":"ule.dialog::PurchaseConfirmDialog","desc_obj":{)"
                    R"("bkgAlpha":0.5,"messageText":"","titleText":"Edit Payment Options: Paypal",)"
                    R"("size":"tall","errorText":"","buttons":[{"label":"confirmpurchase.cancel"},)"
                    R"({"label":"confirmpurchase.buynow","context":{"digitalGoodID":"good",)"
                    R"("digitalGoodSKU":"sku","digitalGoodName":"name","metaData":"meta"}}],)"
                    R"("groupId":"group","cid":"1","price":"$3.99","tax":"0","total":"$3.99",)"
                    R"("currency":"CAD","testingMode":"true","chosenOption":"PAYPAL",)"
                    R"("type":"buyer@example.com","vendor":"app","name":"app","iconURL":"icon"}})"
                    "\n");
}

TEST_F(PurchaseDialogTest, EachEndIsAnOutcome)
{
    const std::string failure = "Error occurred during purchase process.";
    const std::string success = R"("errorSelection":"paymentSuccess")";
    EXPECT_EQ(described(closed("")), "1 " + failure);
    EXPECT_EQ(described(closed(R"("errorSelection":7)")), "1 " + failure);
    EXPECT_EQ(described(closed(R"("errorSelection":"no money")")), "4 no money");
    EXPECT_EQ(described(closed(success)), "2 " + failure);
    EXPECT_EQ(described(closed(success + R"(,"responseBtnLabel":"confirmpurchase.cancel")")),
              "3 Purchase was canceled.");
    EXPECT_EQ(described(closed(success + R"(,"responseBtnLabel":"confirmpurchase.buynow")")),
              "0  receipt");
    EXPECT_EQ(described(closed(success + R"(,"responseBtnLabel":"")")), "0  receipt");
    EXPECT_EQ(closed("").requestId, 9);
}

TEST_F(PurchaseDialogTest, WithoutDetailsItIsAnErrorAndNoSuccess)
{
    const std::string failure = "1 Error occurred during purchase process.";
    EXPECT_EQ(described(outcome("@control\nid::9\n")), failure);
    EXPECT_EQ(described(outcome("@control\nid::9\ndat:json:{}\n")), failure);
    EXPECT_EQ(described(outcome("@control\nid::9\nerrorSelection::paymentSuccess\n"
                                "responseBtnLabel::buy\n")),
              failure);
    EXPECT_EQ(described(outcome("@control\nid::9\ndat:json:{\"resp_obj\":[]}\n")), failure);
}

TEST_F(PurchaseDialogTest, MalformedAnswerThrows)
{
    for (const std::string& answer :
         {std::string("no message"), std::string("@other\nid::9\n"), std::string("id::9\n"),
          std::string("@control\nres::x\n"), std::string("@control\nid:n:9\n"),
          std::string("@control\nid::nine\n"), std::string("@control\nid::9\n\0", 16)})
        EXPECT_THROW(outcome(answer), tamo::Exception) << answer;
}

TEST_F(PurchaseDialogTest, ReceiptIsOfTheRequestAndTheAnswer)
{
    const std::string bought =
        R"("errorSelection":"paymentSuccess","responseBtnLabel":"confirmpurchase.buynow")";
    const QDateTime before = QDateTime::currentDateTime();
    const auto plain = closed(bought + R"(,"startDate":5,"endDate":6,"initialPeriod":"7")").receipt;
    EXPECT_EQ(plain->digitalGoodId(), "good");
    EXPECT_EQ(plain->digitalGoodSku(), "sku");
    EXPECT_EQ(plain->purchaseMetadata(), "meta");
    EXPECT_TRUE(plain->purchaseId().isNull());
    EXPECT_EQ(plain->state(), 0);
    EXPECT_TRUE(plain->startDate().isNull());
    EXPECT_EQ(plain->initialPeriod(), -1);
    EXPECT_GE(plain->date(), before);
    EXPECT_LE(plain->date(), QDateTime::currentDateTime());

    const auto subscription =
        closed(bought + R"(,"purchaseID":"p","itemState":"2","startDate":1300000000000,)"
                        R"("initialPeriod":"7")")
            .receipt;
    EXPECT_EQ(subscription->purchaseId(), "p");
    EXPECT_EQ(subscription->state(), 2);
    EXPECT_EQ(subscription->startDate(), QDateTime::fromMSecsSinceEpoch(1300000000000));
    EXPECT_TRUE(subscription->endDate().isNull());
    EXPECT_EQ(subscription->initialPeriod(), 7);
    EXPECT_EQ(closed(bought + R"(,"itemState":"2")").receipt->initialPeriod(), 0);
    const auto absurd =
        closed(bought + R"(,"itemState":"2","startDate":1e300,"endDate":"text")").receipt;
    EXPECT_TRUE(absurd->startDate().isNull());
    EXPECT_TRUE(absurd->endDate().isNull());
}

TEST_F(PurchaseDialogTest, DialogThatClosesWithoutAnAnswerThrows)
{
    std::array<int, 2> ends = {};
    ASSERT_EQ(::socketpair(AF_UNIX, SOCK_SEQPACKET, 0, ends.data()), 0);
    const ServiceDescriptor service(ends[0]);
    {
        const ServiceDescriptor other(ends[1]);
        ASSERT_EQ(::shutdown(ends[1], SHUT_WR), 0);
        EXPECT_THROW(dialog.run(service), tamo::Exception);
    }
}

} // namespace
