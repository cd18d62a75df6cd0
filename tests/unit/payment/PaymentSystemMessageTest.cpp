// SPDX-License-Identifier: Apache-2.0
#include "platform/payment/PaymentSystemMessage.h"

#include "platform/payment/MessageWriter.h"
#include "platform/payment/ServiceDescriptor.h"

#include <tamo/Exception.h>

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <fcntl.h>
#include <string>
#include <unistd.h>

using tamo::platform::MessageWriter;
using tamo::platform::PaymentArguments;
using tamo::platform::PaymentSystemMessage;
using tamo::platform::ServiceDescriptor;

namespace {

std::string textOf(const PaymentSystemMessage& message, const PaymentArguments& arguments,
                   int id = 12)
{
    std::array<int, 2> ends = {};
    EXPECT_EQ(::pipe(ends.data()), 0);
    const ServiceDescriptor out(ends[0]);
    const ServiceDescriptor in(ends[1]);
    MessageWriter writer;
    message.writeTo(writer, id, arguments);
    writer.writeTo(in);
    std::string text(4096, '\0');
    text.resize(static_cast<std::size_t>(out.read(text.data(), text.size())));
    return text;
}

PaymentArguments filled()
{
    return {"group", "good", "sku", "name", "meta", "app", "icon", "purchase", true, "p.i"};
}

TEST(PaymentSystemMessageTest, EachHasItsFieldsInTheirOrder)
{
    const PaymentArguments all = filled();
    EXPECT_EQ(textOf(PaymentSystemMessage::purchase, all),
              "msg::paymentSystemType\nid::12\n"
              R"(dat:json:{"digitalGoodID":"good","digitalGoodSKU":"sku",)"
              R"("digitalGoodName":"name","metaData":"meta","purchaseAppName":"app",)"
              R"("purchaseAppIcon":"icon","uiGroupID":"group","purchaseAppID":"p.i"})"
              "\n");
    EXPECT_EQ(textOf(PaymentSystemMessage::existingPurchases, all),
              "msg::getExistingPurchasesType\nid::12\n"
              R"(dat:json:{"uiGroupID":"group","purchaseAppID":"p.i","allowRefresh":true})"
              "\n");
    EXPECT_EQ(textOf(PaymentSystemMessage::price, all),
              "msg::getPriceType\nid::12\n"
              R"(dat:json:{"digitalGoodID":"good","digitalGoodSKU":"sku",)"
              R"("purchaseAppID":"p.i","uiGroupID":"group"})"
              "\n");
    EXPECT_EQ(textOf(PaymentSystemMessage::checkStatus, all),
              "msg::checkExistingType\nid::12\n"
              R"(dat:json:{"digitalGoodID":"good","digitalGoodSKU":"sku",)"
              R"("purchaseAppID":"p.i","uiGroupID":"group"})"
              "\n");
    EXPECT_EQ(textOf(PaymentSystemMessage::cancelSubscription, all),
              "msg::cancelSubscriptionType\nid::12\n"
              R"(dat:json:{"purchaseID":"purchase","purchaseAppID":"p.i","uiGroupID":"group"})"
              "\n");
}

TEST(PaymentSystemMessageTest, EmptyTextsAreWrittenAndAnIdThatIsNotKnownIsNot)
{
    EXPECT_EQ(textOf(PaymentSystemMessage::price, {}, 0), "msg::getPriceType\nid::0\n"
                                                          R"(dat:json:{"digitalGoodID":"",)"
                                                          R"("digitalGoodSKU":"","uiGroupID":""})"
                                                          "\n");
}

TEST(PaymentSystemMessageTest, TextBeyondAsciiGoesOutAsUtf8)
{
    PaymentArguments arguments;
    arguments.purchaseId = QString::fromUtf8("\xc3\xa4\xf0\x9f\x8e\x81");
    EXPECT_NE(textOf(PaymentSystemMessage::cancelSubscription, arguments)
                  .find("\"purchaseID\":\"\xc3\xa4\xf0\x9f\x8e\x81\""),
              std::string::npos);
}

TEST(PaymentSystemMessageTest, WhatCannotBeCarriedIsRefused)
{
    for (const QString& text : {QString(QChar(0)), QString(QChar(0xd800))}) {
        PaymentArguments arguments;
        arguments.digitalGoodId = text;
        MessageWriter writer;
        EXPECT_THROW(PaymentSystemMessage::price.writeTo(writer, 0, arguments), tamo::Exception);
    }
    PaymentArguments arguments;
    arguments.applicationId = "\xff";
    MessageWriter writer;
    EXPECT_THROW(PaymentSystemMessage::price.writeTo(writer, 0, arguments), tamo::Exception);
}

TEST(PaymentSystemMessageTest, ShortWriteIsAFailure)
{
    std::array<int, 2> ends = {};
    ASSERT_EQ(::pipe2(ends.data(), O_NONBLOCK), 0);
    const ServiceDescriptor out(ends[0]);
    const ServiceDescriptor in(ends[1]);
    PaymentArguments arguments;
    arguments.digitalGoodId = QString(200'000, 'x'); // more than a pipe holds
    MessageWriter writer;
    PaymentSystemMessage::price.writeTo(writer, 0, arguments);
    EXPECT_THROW(writer.writeTo(in), tamo::Exception);
}

TEST(PaymentSystemMessageTest, FailedWriteIsAFailure)
{
    const ServiceDescriptor readOnly("/dev/null", O_RDONLY);
    MessageWriter writer;
    PaymentSystemMessage::price.writeTo(writer, 0, {});
    EXPECT_THROW(writer.writeTo(readOnly), tamo::Exception);
}

TEST(ServiceDescriptorTest, WhatCannotBeOpenedThrows)
{
    EXPECT_THROW(ServiceDescriptor("/nowhere/at/all", O_RDONLY), tamo::Exception);
}

} // namespace
