// SPDX-License-Identifier: Apache-2.0
// Reports everything it hears from the phone, one line each. A chapter is a service.
#include "BatteryChapter.h"
#include "report.h"

#include <QCoreApplication>
#include <QTimer>

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const BatteryChapter battery;
    QTimer::singleShot(0, [] { report(QStringLiteral("hello-phone: listening")); });
    return app.exec();
}
