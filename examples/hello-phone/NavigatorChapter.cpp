// SPDX-License-Identifier: Apache-2.0
#include "NavigatorChapter.h"

#include "report.h"

#include <tamo/Application.h>

using tamo::Application;

NavigatorChapter::NavigatorChapter(const Application& application)
{
    const auto reportEach = [&application](auto signal, const char* line) {
        QObject::connect(&application, signal, [line] { report(QString::fromUtf8(line)); });
    };
    reportEach(&Application::fullscreen, "window: full screen");
    reportEach(&Application::thumbnail, "window: thumbnail");
    reportEach(&Application::invisible, "window: invisible");
    reportEach(&Application::awake, "window: active");
    reportEach(&Application::asleep, "window: inactive");
    reportEach(&Application::swipeDown, "navigator: the user swiped down");
    reportEach(&Application::lowMemory, "navigator: memory is short");
    QObject::connect(&application, &Application::urlHandlerInvoked, [](const QUrl& url) {
        report(QStringLiteral("navigator: invoked with %1").arg(url.toString()));
    });
}
