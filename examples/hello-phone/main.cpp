// SPDX-License-Identifier: Apache-2.0
// Reports everything it hears from the phone, one line each. A chapter is a service.
#include "BatteryChapter.h"
#include "NavigatorChapter.h"
#include "OrientationChapter.h"
#include "report.h"

#include <tamo/Application.h>

#include <QTimer>

int main(int argc, char** argv)
{
    tamo::Application app(argc, argv);
    const NavigatorChapter navigator(app);
    const OrientationChapter orientation;
    const BatteryChapter battery;
    QTimer::singleShot(0, [] { report(QStringLiteral("hello-phone: listening")); });
    const int status = app.exec();
    report(QStringLiteral("hello-phone: leaving"));
    return status;
}
