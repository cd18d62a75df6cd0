// SPDX-License-Identifier: Apache-2.0
// An application that ends in the middle of a storm of events, in the way that its argument says,
// with the status 42.
#include "Storm.h"
#include "SubstitutePlatform.h"

#include <tamo/Application.h>
#include <tamo/Navigator.h>

#include <QUrl>

#include <cstdlib>
#include <string>

#include <unistd.h>

namespace {

constexpr int status = 42;

void listen(tamo::Application& application, const std::string& way)
{
    using tamo::Application;
    using tamo::Navigator;
    const auto onMainThread = [&](auto function) {
        QObject::connect(&application, &Application::swipeDown, &application, function);
    };
    const auto onDispatchThread = [&](auto function) {
        QObject::connect(Navigator::getInstance(), &Navigator::swipeDown, Navigator::getInstance(),
                         function, Qt::DirectConnection);
    };
    if (way == "quit")
        onMainThread([] { QCoreApplication::exit(status); });
    else if (way == "exit")
        onMainThread([] { std::exit(status); });
    else if (way == "exit-on-the-dispatch-thread")
        onDispatchThread([] { std::exit(status); });
    else if (way == "_exit")
        onMainThread([] { _exit(status); });
    else if (way == "_exit-on-the-dispatch-thread")
        onDispatchThread([] { _exit(status); });
    else if (way == "quick_exit")
        onMainThread([] { std::quick_exit(status); });
}

} // namespace

int main(int argc, char** argv)
{
    const std::string way = argc > 1 ? argv[1] : "";
    tamotest::SubstitutePlatform& platform = tamotest::SubstitutePlatform::shared();
    tamotest::LogCapture::instance().setKeeping(false);
    platform.journal().setKeeping(false);
    // Not ended: it goes on as long as the process lives.
    new tamotest::Storm([&platform] {
        tamotest::EventContent content;
        content.groupId = "group";
        content.data = "scheme://host";
        for (const int code : {1, 3, 4, 6, 10, 11})
            platform.navigator().deliver(code, content);
    });
    tamo::Application application(argc, argv);
    listen(application, way);
    if (way == "return") {
        QObject::connect(&application, &tamo::Application::swipeDown, &application,
                         &QCoreApplication::quit);
        tamo::Application::exec();
        return status;
    }
    return tamo::Application::exec();
}
