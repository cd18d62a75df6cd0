// SPDX-License-Identifier: Apache-2.0
#include <tamo/platform/PurchaseReceipt.h>

#include <tamomock/PurchaseReceiptEditor.h>

#include <QList>
#include <QVariant>

#include <gtest/gtest.h>

#include <type_traits>

using tamo::platform::PurchaseReceipt;
using tamomock::PurchaseReceiptEditor;

namespace {

const QDateTime date = QDateTime::fromMSecsSinceEpoch(1000);

/** All that a receipt tells. */
QVariantList all(const PurchaseReceipt& r)
{
    return {r.state(),         r.date(),       r.digitalGoodId(), r.digitalGoodSku(),
            r.licenseKey(),    r.startDate(),  r.endDate(),       r.purchaseMetadata(),
            r.initialPeriod(), r.purchaseId(), r.isSubscription()};
}

PurchaseReceipt filled(const QString& goodId = "id")
{
    PurchaseReceipt receipt;
    PurchaseReceiptEditor(receipt)
        .setState(2)
        .setDate(date)
        .setDigitalGoodId(goodId)
        .setDigitalGoodSku("sku")
        .setLicenseKey("key")
        .setPurchaseMetadata("meta")
        .setPurchaseId("purchase")
        .setStartDate(date.addDays(1))
        .setEndDate(date.addDays(2))
        .setInitialPeriod(7);
    return receipt;
}

TEST(PurchaseReceiptTest, TellsNothingAtFirst)
{
    const PurchaseReceipt receipt;
    EXPECT_EQ(receipt.state(), 5);
    EXPECT_EQ(receipt.initialPeriod(), -1);
    EXPECT_TRUE(receipt.isSubscription());
    EXPECT_TRUE(receipt.date().isNull());
    EXPECT_TRUE(receipt.startDate().isNull());
    EXPECT_TRUE(receipt.endDate().isNull());
    for (const QString& text :
         {receipt.digitalGoodId(), receipt.digitalGoodSku(), receipt.licenseKey(),
          receipt.purchaseMetadata(), receipt.purchaseId()})
        EXPECT_TRUE(text.isNull());
}

TEST(PurchaseReceiptTest, IsFilledByTheEditor)
{
    EXPECT_EQ(all(filled()), (QVariantList{2, date, "id", "sku", "key", date.addDays(1),
                                           date.addDays(2), "meta", 7, "purchase", true}));
}

TEST(PurchaseReceiptTest, IsASubscriptionInEachStateButZero)
{
    PurchaseReceipt receipt;
    for (const int state : {-1, 0, 1, 4, 5, 6}) {
        PurchaseReceiptEditor(receipt).setState(state);
        EXPECT_EQ(receipt.isSubscription(), state != 0) << state;
    }
}

TEST(PurchaseReceiptTest, CopyIsIndependent)
{
    PurchaseReceipt original = filled();
    const PurchaseReceipt copy = original;
    const QVariantList before = all(copy);
    EXPECT_EQ(before, all(original));
    PurchaseReceiptEditor(original).setState(0).setDigitalGoodId("other").setDate(QDateTime());
    EXPECT_EQ(all(copy), before);
}

TEST(PurchaseReceiptTest, AssignmentTakesEverythingOver)
{
    PurchaseReceipt target = filled("former");
    {
        const PurchaseReceipt source = filled("latter");
        target = source;
    }
    EXPECT_EQ(all(target), all(filled("latter")));
    target = PurchaseReceipt();
    EXPECT_EQ(all(target), all(PurchaseReceipt()));
}

TEST(PurchaseReceiptTest, AssignmentToItselfChangesNothing)
{
    PurchaseReceipt receipt = filled();
    const PurchaseReceipt& same = receipt;
    receipt = same;
    EXPECT_EQ(all(receipt), all(filled()));
}

TEST(PurchaseReceiptTest, WhatIsMovedFromStaysAsItWas)
{
    PurchaseReceipt source = filled();
    const PurchaseReceipt target = std::move(source);
    EXPECT_EQ(all(target), all(filled()));
    EXPECT_EQ(all(source), all(filled())); // NOLINT(bugprone-use-after-move)
}

TEST(PurchaseReceiptTest, ListsCopyAndMoveThem)
{
    QList<PurchaseReceipt> list;
    for (int i = 0; i < 100; ++i)
        list.prepend(filled(QString::number(i)));
    QList<PurchaseReceipt> copy = list;
    PurchaseReceiptEditor(copy[0]).setDigitalGoodId("changed");
    EXPECT_EQ(list.first().digitalGoodId(), "99");
    EXPECT_EQ(copy.first().digitalGoodId(), "changed");
    EXPECT_EQ(copy.last().digitalGoodId(), "0");
}

TEST(PurchaseReceiptTest, TravelsInAVariant)
{
    EXPECT_EQ(all(QVariant::fromValue(filled()).value<PurchaseReceipt>()), all(filled()));
}

static_assert(std::has_virtual_destructor_v<PurchaseReceipt>);

} // namespace
