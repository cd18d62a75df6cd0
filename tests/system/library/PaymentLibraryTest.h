// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_PAYMENTLIBRARYTEST_H
#define TAMO_TESTS_PAYMENTLIBRARYTEST_H

#include "CatchingApplication.h"
#include "PaymentCustomer.h"
#include "PrivatePps.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <string>
#include <sys/stat.h>

namespace tamotest {

/** Payments over a real /pps. The process has one service, so that all tests share one filesystem.
 */
class PaymentLibraryTest : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        filesystem = new PpsFilesystem;
        for (const char* const directory :
             {"/pps/services", "/pps/services/paymentsystem", "/pps/services/dialog"})
            ::mkdir(directory, 0777);
    }
    static void TearDownTestSuite()
    {
        delete filesystem;
        filesystem = nullptr;
    }

    PaymentLibraryTest()
    {
        EXPECT_TRUE(QDir::setCurrent(package.path()));
        CatchingApplication::instance()->caught.clear();
    }
    ~PaymentLibraryTest() override { QDir::setCurrent("/"); }

    /** Writes the manifest of the package that the working directory is. */
    static void writeManifest(const QByteArray& text)
    {
        EXPECT_TRUE(QDir().mkpath("app/META-INF"));
        QFile file("app/META-INF/MANIFEST.MF");
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(text), text.size());
    }

    /** Waits until there were so many answers, or an exception. */
    bool waitForAnswers(int count) const
    {
        return QTest::qWaitFor([=] { return customer.count >= count; }, 10'000);
    }

    static bool waitForExceptions(std::size_t count)
    {
        return QTest::qWaitFor(
            [=] { return CatchingApplication::instance()->caught.size() >= count; }, 10'000);
    }

    static inline PpsFilesystem* filesystem = nullptr;
    const QTemporaryDir package;
    PaymentCustomer customer;
};

} // namespace tamotest

#endif
