// SPDX-License-Identifier: Apache-2.0
#include <tamo/Application.h>

#include "ApplicationPrivate.h"
#include "DispatchGate.h"
#include "SubscriptionThread.h"

#include <tamo/Navigator.h>

namespace tamo {

static constexpr auto settlingLimit = std::chrono::seconds(5);

Application::Application(int& argc, char** argv)
    : QCoreApplication(argc, argv), d(std::make_unique<ApplicationPrivate>(this))
{
    const Navigator* const navigator = Navigator::getInstance();
    // In the form that an application can take them apart in, too.
    connect(navigator, SIGNAL(thumbnail(QString)), this, SIGNAL(thumbnail(QString)));
    connect(navigator, SIGNAL(fullscreen(QString)), this, SIGNAL(fullscreen(QString)));
    connect(navigator, SIGNAL(invisible(QString)), this, SIGNAL(invisible(QString)));
    connect(navigator, SIGNAL(swipeDown()), this, SIGNAL(swipeDown()));
    connect(navigator, SIGNAL(lowMemory()), this, SIGNAL(lowMemory()));
    connect(navigator, SIGNAL(asleep(QString)), this, SIGNAL(asleep(QString)));
    connect(navigator, SIGNAL(awake(QString)), this, SIGNAL(awake(QString)));
    connect(navigator, SIGNAL(urlHandlerInvoked(QUrl)), this, SIGNAL(urlHandlerInvoked(QUrl)));
    connect(navigator, SIGNAL(exit()), this, SLOT(quit()));
}

// The connections end here, while this is still an application: later, a signal on its way would
// meet an object without signals, or post to an event loop that is just being taken down. A slot on
// the dispatch thread that does not end keeps the subscription from ending, too.
Application::~Application()
{
    const bool isQuiet = DispatchGate::instance().shut();
    Navigator::getInstance()->disconnect(this);
    if (isQuiet)
        SubscriptionThread::instance().settle(settlingLimit);
}

} // namespace tamo
