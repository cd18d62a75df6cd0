// SPDX-License-Identifier: Apache-2.0
// Reports everything it hears from the phone, one line each. A chapter is a service.
#include "BatteryChapter.h"
#include "DisplayChapter.h"
#include "NavigatorChapter.h"
#include "NetworkChapter.h"
#include "OrientationChapter.h"
#include "QuestionChapter.h"
#include "report.h"

#include <tamo/Application.h>

#include <QTimer>
#include <QUrl>

#include <memory>

int main(int argc, char** argv)
{
    tamo::Application app(argc, argv);
    const NavigatorChapter navigator(app);
    const OrientationChapter orientation;
    const BatteryChapter battery;
    const DisplayChapter displays;
    const NetworkChapter network;
    std::unique_ptr<QuestionChapter> question;
    QObject::connect(&app, &tamo::Application::urlHandlerInvoked, [&question](const QUrl& url) {
        if (url == QUrl(QStringLiteral("hello-phone:ask")))
            question = std::make_unique<QuestionChapter>();
    });
    QTimer::singleShot(0, [] { report(QStringLiteral("hello-phone: listening")); });
    const int status = app.exec();
    report(QStringLiteral("hello-phone: leaving"));
    return status;
}
