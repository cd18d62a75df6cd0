// SPDX-License-Identifier: Apache-2.0
// shop [--test] buy|price|terms|status GOOD, cancel PURCHASE, list: one request to the payment
// service, in test mode with --test. It is run in the package's directory, where
// app/META-INF/MANIFEST.MF is.
#include "Shop.h"

#include <tamo/Exception.h>

#include <QCoreApplication>

#include <iostream>

using tamo::platform::PaymentService;

namespace {

/** Ends with an error where an answer cannot be understood. */
class Application : public QCoreApplication
{
public:
    using QCoreApplication::QCoreApplication;

    bool notify(QObject* receiver, QEvent* event) override
    {
        try {
            return QCoreApplication::notify(receiver, event);
        } catch (const tamo::Exception&) {
            std::cerr << "shop: the payment system's answer cannot be understood" << std::endl;
            exit(1);
            return false;
        }
    }
};

} // namespace

int main(int argc, char** argv)
{
    Application app(argc, argv);
    QStringList arguments = app.arguments().mid(1);
    const bool isTest = arguments.removeAll(QStringLiteral("--test")) > 0;
    Shop shop;
    try {
        PaymentService& payments = *PaymentService::getInstance();
        payments.setApplicationName(QStringLiteral("Shop"));
        payments.setConnectionMode(isTest ? 0 : 1);
        if (!shop.ask(arguments.value(0), arguments.value(1))) {
            std::cerr << "usage: shop [--test] buy|price|terms|status GOOD | cancel PURCHASE | list"
                      << std::endl;
            return 2;
        }
    } catch (const tamo::Exception&) {
        std::cerr << "shop: no payments: is app/META-INF/MANIFEST.MF here, with a Package-Name and "
                     "a Package-Id, and is this a phone, or a box?"
                  << std::endl;
        return 1;
    }
    return app.exec();
}
