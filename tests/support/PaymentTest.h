// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_PAYMENTTEST_H
#define TAMO_TESTS_PAYMENTTEST_H

#include "PaymentCustomer.h"
#include "SubstitutePayments.h"

#include <tamo/Exception.h>

#include <QCoreApplication>
#include <QTest>

#include <gtest/gtest.h>

namespace tamotest {

/** Delivers what is queued in this thread. The number of deliveries that threw tamo::Exception. */
inline int deliver()
{
    int thrown = 0;
    for (bool isOver = false; !isOver;) {
        try {
            QCoreApplication::sendPostedEvents();
            isOver = true;
        } catch (const tamo::Exception&) {
            ++thrown;
        }
    }
    return thrown;
}

/** The process's service gets SubstitutePayments for back ends; `backEnd` is the last one. */
class PaymentTest : public testing::Test
{
protected:
    PaymentTest()
    {
        tamomock::PaymentServiceInterfaceFactory::setCreator([this](int mode) {
            modes.append(mode);
            backEnd = new SubstitutePayments([this] { modes.append(-1); });
            return backEnd;
        });
    }
    ~PaymentTest() override { tamomock::PaymentServiceInterfaceFactory::resetCreator(); }

    /** The modes that back ends were made for, and -1 for each that was deleted. */
    QList<int> modes;
    SubstitutePayments* backEnd = nullptr;
    PaymentCustomer customer;
};

} // namespace tamotest

#endif
