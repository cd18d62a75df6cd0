// SPDX-License-Identifier: Apache-2.0
// The values that answer requests, without a service.
#include "platform/payment/CancelSubscriptionResponseInfoPrivate.h"
#include "platform/payment/CheckStatusResponseInfoPrivate.h"
#include "platform/payment/ExistingPurchasesResponseInfoPrivate.h"
#include "platform/payment/PurchaseResponseInfoPrivate.h"
#include "platform/payment/SubscriptionTermsResponseInfoPrivate.h"

#include <tamo/platform/CancelSubscriptionResponseInfo.h>
#include <tamo/platform/CheckStatusResponseInfo.h>
#include <tamo/platform/ExistingPurchasesResponseInfo.h>
#include <tamo/platform/PaymentServiceException.h>
#include <tamo/platform/PriceResponseInfo.h>
#include <tamo/platform/PurchaseResponseInfo.h>
#include <tamo/platform/SubscriptionTermsResponseInfo.h>

#include <QVariant>

#include <gtest/gtest.h>

#include <memory>
#include <thread>
#include <type_traits>
#include <vector>

using namespace tamo::platform;

namespace {

template<class Info>
class PaymentServiceResponseTest : public testing::Test
{
};

template<class Info>
constexpr bool isAboutGood = std::is_base_of_v<DigitalGoodResponse, Info>;

template<class Info>
Info failed()
{
    if constexpr (isAboutGood<Info>)
        return Info("id", "sku", 7, "text");
    else
        return Info(7, "text");
}

template<class Info>
void expectFailed(const Info& info)
{
    EXPECT_TRUE(info.error());
    EXPECT_EQ(info.errorCode(), 7);
    EXPECT_EQ(info.errorText(), "text");
    if constexpr (isAboutGood<Info>) {
        EXPECT_EQ(info.digitalGoodId(), "id");
        EXPECT_EQ(info.digitalGoodSku(), "sku");
    }
}

template<class Info>
void expectNoError(const Info& info)
{
    EXPECT_FALSE(info.error());
    EXPECT_EQ(info.errorCode(), 0);
    EXPECT_TRUE(info.errorText().isNull());
}

using Infos =
    testing::Types<PaymentServiceResponse, PurchaseResponseInfo, ExistingPurchasesResponseInfo,
                   PriceResponseInfo, SubscriptionTermsResponseInfo, CheckStatusResponseInfo,
                   CancelSubscriptionResponseInfo>;
TYPED_TEST_SUITE(PaymentServiceResponseTest, Infos, );

TYPED_TEST(PaymentServiceResponseTest, HasNoErrorAtFirst)
{
    const TypeParam info;
    expectNoError(info);
    if constexpr (isAboutGood<TypeParam>) {
        EXPECT_TRUE(info.digitalGoodId().isNull());
        EXPECT_TRUE(info.digitalGoodSku().isNull());
    }
}

TYPED_TEST(PaymentServiceResponseTest, TellsAnError)
{
    expectFailed(failed<TypeParam>());
}

TYPED_TEST(PaymentServiceResponseTest, IsAboutAGoodWithoutAnError)
{
    if constexpr (isAboutGood<TypeParam>) {
        const TypeParam info("id", "sku");
        expectNoError(info);
        EXPECT_EQ(info.digitalGoodId(), "id");
        EXPECT_EQ(info.digitalGoodSku(), "sku");
    }
}

TYPED_TEST(PaymentServiceResponseTest, CopyOutlivesItsOriginal)
{
    auto original = std::make_unique<TypeParam>(failed<TypeParam>());
    const TypeParam copy(*original);
    TypeParam assigned;
    assigned = *original;
    original.reset();
    expectFailed(copy);
    expectFailed(assigned);
}

TYPED_TEST(PaymentServiceResponseTest, CopyIsAPointerThatIsShared)
{
    const TypeParam original = failed<TypeParam>();
    const TypeParam copy = original;
    EXPECT_EQ(&PaymentServiceResponsePrivate::read<PaymentServiceResponsePrivate>(original),
              &PaymentServiceResponsePrivate::read<PaymentServiceResponsePrivate>(copy));
    EXPECT_EQ(sizeof(TypeParam), sizeof(PaymentServiceResponse));
}

TYPED_TEST(PaymentServiceResponseTest, AssignmentToItselfChangesNothing)
{
    TypeParam info = failed<TypeParam>();
    const TypeParam& same = info;
    info = same;
    expectFailed(info);
}

TYPED_TEST(PaymentServiceResponseTest, CopyAsItsBaseTellsTheSame)
{
    PaymentServiceResponse base = failed<TypeParam>();
    EXPECT_EQ(base.errorCode(), 7);
    base = TypeParam();
    EXPECT_FALSE(base.error());
}

TYPED_TEST(PaymentServiceResponseTest, TravelsInAVariant)
{
    expectFailed(QVariant::fromValue(failed<TypeParam>()).template value<TypeParam>());
}

TYPED_TEST(PaymentServiceResponseTest, IsCopiedInSeveralThreadsAtOnce)
{
    const TypeParam info = failed<TypeParam>();
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([copy = info] {
            TypeParam last;
            for (int k = 0; k < 1000; ++k)
                last = TypeParam(copy);
            expectFailed(last);
        });
    for (std::thread& thread : threads)
        thread.join();
    expectFailed(info);
}

TYPED_TEST(PaymentServiceResponseTest, IsDeletedThroughItsBase)
{
    static_assert(std::has_virtual_destructor_v<TypeParam>);
    const std::unique_ptr<PaymentServiceResponse> info =
        std::make_unique<TypeParam>(failed<TypeParam>());
    EXPECT_TRUE(info->error());
}

TEST(PaymentServiceResponsePayloadTest, IsEmptyAtFirstAndAfterAnError)
{
    for (const auto& info : {PurchaseResponseInfo(), failed<PurchaseResponseInfo>()}) {
        EXPECT_TRUE(info.receipt().isNull());
        EXPECT_TRUE(info.purchaseMetadata().isNull());
    }
    for (const auto& info :
         {ExistingPurchasesResponseInfo(), failed<ExistingPurchasesResponseInfo>()})
        EXPECT_TRUE(info.purchases().isEmpty());
    for (const auto& info :
         {SubscriptionTermsResponseInfo(), failed<SubscriptionTermsResponseInfo>()}) {
        for (const QString& text :
             {info.price(), info.initialPeriod(), info.renewalPrice(), info.renewalPeriod()})
            EXPECT_TRUE(text.isNull());
    }
    EXPECT_FALSE(CheckStatusResponseInfo().active());
    EXPECT_FALSE(failed<CheckStatusResponseInfo>().active());
    for (const auto& info :
         {CancelSubscriptionResponseInfo(), failed<CancelSubscriptionResponseInfo>()}) {
        EXPECT_FALSE(info.canceled());
        EXPECT_TRUE(info.purchaseId().isNull());
    }
}

TEST(PaymentServiceResponsePayloadTest, TermsAnswerThroughTheirBasesToo)
{
    SubscriptionTermsResponseInfo terms("id", "sku");
    PaymentServiceResponsePrivate::write<SubscriptionTermsResponseInfoPrivate>(terms).price = "$1";
    const PriceResponseInfo price = terms;
    EXPECT_EQ(price.price(), "$1");
    EXPECT_EQ(price.digitalGoodId(), "id");
    EXPECT_EQ(price.digitalGoodSku(), "sku");
}

TEST(PaymentServiceResponsePayloadTest, AssignmentToABaseLeavesAnEmptyPayload)
{
    PurchaseResponseInfo purchase("id", "sku");
    PaymentServiceResponse& base = purchase;
    base = PaymentServiceResponse(7, "text");
    EXPECT_EQ(purchase.errorCode(), 7);
    EXPECT_TRUE(purchase.receipt().isNull());
    EXPECT_TRUE(purchase.digitalGoodId().isNull());
}

TEST(PaymentServiceExceptionTest, IsAnException)
{
    try {
        throw PaymentServiceException();
    } catch (const tamo::Exception& exception) {
        EXPECT_NE(dynamic_cast<const PaymentServiceException*>(&exception), nullptr);
    }
}

} // namespace
