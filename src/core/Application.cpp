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
    connect(navigator, &Navigator::thumbnail, this, &Application::thumbnail);
    connect(navigator, &Navigator::fullscreen, this, &Application::fullscreen);
    connect(navigator, &Navigator::invisible, this, &Application::invisible);
    connect(navigator, &Navigator::swipeDown, this, &Application::swipeDown);
    connect(navigator, &Navigator::lowMemory, this, &Application::lowMemory);
    connect(navigator, &Navigator::asleep, this, &Application::asleep);
    connect(navigator, &Navigator::awake, this, &Application::awake);
    connect(navigator, &Navigator::urlHandlerInvoked, this, &Application::urlHandlerInvoked);
    connect(navigator, &Navigator::exit, this, &QCoreApplication::quit);
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
