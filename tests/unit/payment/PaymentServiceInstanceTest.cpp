// SPDX-License-Identifier: Apache-2.0
// The process's one service, from its beginning. One test, since a process has one beginning.
#include "PaymentTest.h"

#include <stdexcept>

using tamo::platform::PaymentService;
using tamomock::PaymentServiceInterface;
using tamomock::PaymentServiceInterfaceFactory;
using tamotest::PaymentCustomer;

namespace {

class PaymentServiceInstanceTest : public tamotest::PaymentTest
{
};

TEST_F(PaymentServiceInstanceTest, BeginsWithTheFirstSuccessAndWithRequestZero)
{
    int attempts = 0;
    PaymentServiceInterfaceFactory::setCreator([&](int mode) -> PaymentServiceInterface* {
        EXPECT_EQ(mode, 1);
        switch (++attempts) {
        case 1:
            throw std::logic_error("cannot");
        case 2:
            return nullptr;
        default:
            return backEnd = new tamotest::SubstitutePayments;
        }
    });
    EXPECT_THROW(PaymentService::getInstance(), std::logic_error);
    EXPECT_THROW(PaymentService::getInstance(), tamo::Exception);
    PaymentService* const service = PaymentService::getInstance();
    EXPECT_EQ(PaymentService::getInstance(), service);
    EXPECT_EQ(attempts, 3);

    service->requestPrice("g", &customer, PaymentCustomer::price());
    service->checkStatus("g", &customer, PaymentCustomer::status());
    EXPECT_EQ(backEnd->ids, (QList<int>{0, 1}));

    // The library's own back ends, for all but the payment system's absence.
    PaymentServiceInterfaceFactory::resetCreator();
    EXPECT_EQ(PaymentServiceInterfaceFactory::create(7), nullptr);
    EXPECT_EQ(PaymentServiceInterfaceFactory::create(-1), nullptr);
    EXPECT_THROW(PaymentServiceInterfaceFactory::create(1), tamo::Exception);
    service->setConnectionMode(0);
    service->requestPrice("g", &customer, PaymentCustomer::price());
    EXPECT_EQ(tamotest::deliver(), 0);
    ASSERT_EQ(customer.prices.size(), 1);
    EXPECT_EQ(customer.prices[0].price(), "$1.99");

    EXPECT_THROW(service->setConnectionMode(7), tamo::Exception);
    EXPECT_THROW(service->requestPrice("g", &customer, PaymentCustomer::price()), tamo::Exception);
    EXPECT_THROW(service->setConnectionMode(1), tamo::Exception);
    service->setConnectionMode(0); // the last that was set
    EXPECT_THROW(service->requestPrice("g", &customer, PaymentCustomer::price()), tamo::Exception);
}

} // namespace
