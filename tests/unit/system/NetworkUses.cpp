// SPDX-License-Identifier: Apache-2.0
// An application that uses the manager in the way that its argument says, and ends with 42 where
// everything was as it should be.
#include "Storm.h"
#include "SubstitutePlatform.h"

#include <tamo/Application.h>
#include <tamo/Exception.h>
#include <tamo/Navigator.h>
#include <tamo/system/NetworkStatus.h>
#include <tamo/system/NetworkStatusManager.h>

#include <QThread>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <string>
#include <thread>

namespace {

using namespace tamotest;
using tamo::Navigator;
using tamo::system::NetworkStatus;
using tamo::system::NetworkStatusManager;

constexpr int status = 42;

SubstitutePlatform& platform()
{
    return SubstitutePlatform::shared();
}

void require(bool condition, const char* what)
{
    if (condition)
        return;
    std::fprintf(stderr, "not so: %s\n", what);
    std::_Exit(1);
}

void report(bool isAvailable)
{
    EventContent content;
    content.isAvailable = isAvailable;
    platform().netStatus().isAvailable = isAvailable;
    require(eventually([&] { return platform().netStatus().deliver(NETSTATUS_INFO, content); }),
            "reports are asked for");
}

/** Ends the application with the first folded signal, which must come in its own thread. */
int awaitFoldedSignal()
{
    QObject receiver;
    const std::thread::id own = std::this_thread::get_id();
    QObject::connect(
        NetworkStatusManager::getInstance(), &NetworkStatusManager::externalNetworkConnected,
        &receiver,
        [&] {
            require(std::this_thread::get_id() == own, "in the application's thread");
            QCoreApplication::exit(status);
        },
        Qt::DirectConnection);
    report(true);
    return QCoreApplication::exec();
}

int useInAThreadThatEnds()
{
    std::thread([] { NetworkStatusManager::getInstance(); }).join();
    require(NetworkStatusManager::getInstance()->thread() == QCoreApplication::instance()->thread(),
            "the manager has moved on");
    return awaitFoldedSignal();
}

int useInAQThreadThatEnds()
{
    QThread thread;
    QObject worker;
    worker.moveToThread(&thread);
    QObject::connect(&thread, &QThread::started, &worker, [&] {
        NetworkStatusManager::getInstance();
        // What is queued when the thread ends is not lost.
        report(true);
        report(false);
        thread.quit();
    });
    thread.start();
    thread.wait();
    return awaitFoldedSignal();
}

int useInASlotOnTheDispatchThread()
{
    QObject::connect(
        Navigator::getInstance(), &Navigator::swipeDown, Navigator::getInstance(),
        [] {
            NetworkStatusManager* const manager = NetworkStatusManager::getInstance();
            QObject::connect(manager, &NetworkStatusManager::externalNetworkConnected,
                             QCoreApplication::instance(), [] { QCoreApplication::exit(status); });
        },
        Qt::DirectConnection);
    require(eventually([] { return platform().navigator().deliver(NAVIGATOR_SWIPE_DOWN); }),
            "the navigator's events are asked for");
    report(true);
    return QCoreApplication::exec();
}

// Each of them holds what the other one wants, if anything is held.
int useInTwoThreadsOneOfWhichDispatches()
{
    std::atomic<bool> isInSlot{false};
    std::atomic<bool> isSubscribing{false};
    QObject::connect(
        Navigator::getInstance(), &Navigator::swipeDown, Navigator::getInstance(),
        [&] {
            isInSlot = true;
            require(eventually([&] { return isSubscribing.load(); }), "the other one subscribes");
            NetworkStatusManager::getInstance();
        },
        Qt::DirectConnection);
    require(eventually([] { return platform().navigator().deliver(NAVIGATOR_SWIPE_DOWN); }),
            "the navigator's events are asked for");
    require(eventually([&] { return isInSlot.load(); }), "the slot runs");
    // It is called for the subscription, before the registry is.
    platform().journal().before("core.initialize", [&] { isSubscribing = true; });
    NetworkStatusManager::getInstance();
    return awaitFoldedSignal();
}

int useInManyThreads()
{
    std::vector<std::thread> threads;
    std::vector<NetworkStatusManager*> managers(8);
    for (NetworkStatusManager*& manager : managers)
        threads.emplace_back([&manager] { manager = NetworkStatusManager::getInstance(); });
    for (std::thread& thread : threads)
        thread.join();
    for (NetworkStatusManager* const manager : managers)
        require(manager == managers.front(), "there is one");
    return awaitFoldedSignal();
}

int useWhereThePlatformFailsAtFirst()
{
    platform().journal().failAlways("core.registerDomain");
    for (int i = 0; i < 2; ++i) {
        try {
            NetworkStatusManager::getInstance();
            require(false, "it throws");
        } catch (const tamo::Exception&) {
        }
    }
    platform().journal().succeed("core.registerDomain");
    return awaitFoldedSignal();
}

/** Reports come, and the application asks and connects, until the process has ended. */
void beginStorm()
{
    platform().journal().setKeeping(false);
    LogCapture::instance().setKeeping(false);
    NetworkStatusManager::getInstance(); // which lives in this thread then
    new Storm([] {
        for (const bool isAvailable : {true, false}) {
            EventContent content;
            content.isAvailable = isAvailable;
            platform().netStatus().deliver(NETSTATUS_INFO, content);
        }
    });
    new Storm([] {
        NetworkStatusManager* const manager = NetworkStatusManager::getInstance();
        manager->isExternalNetworkConnected();
        QObject receiver;
        QObject::connect(manager->networkStatus(1), &NetworkStatus::networkConnected, &receiver,
                         [] {});
    });
}

int quitInAStorm()
{
    beginStorm();
    QObject::connect(NetworkStatusManager::getInstance(),
                     &NetworkStatusManager::externalNetworkDisconnected,
                     QCoreApplication::instance(), [] { QCoreApplication::exit(status); });
    return QCoreApplication::exec();
}

int exitInAStorm()
{
    beginStorm();
    QObject::connect(NetworkStatusManager::getInstance(),
                     &NetworkStatusManager::externalNetworkDisconnected,
                     QCoreApplication::instance(), [] { std::exit(status); });
    return QCoreApplication::exec();
}

int exitOnTheDispatchThread()
{
    beginStorm();
    NetworkStatus* const network = NetworkStatusManager::getInstance()->networkStatus(1);
    QObject::connect(
        network, &NetworkStatus::networkDisconnected, network, [] { std::exit(status); },
        Qt::DirectConnection);
    return QCoreApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    const std::map<std::string, std::function<int()>> ways = {
        {"in-a-thread-that-ends", useInAThreadThatEnds},
        {"in-a-qthread-that-ends", useInAQThreadThatEnds},
        {"in-a-slot-on-the-dispatch-thread", useInASlotOnTheDispatchThread},
        {"in-two-threads-one-of-which-dispatches", useInTwoThreadsOneOfWhichDispatches},
        {"in-many-threads", useInManyThreads},
        {"where-the-platform-fails-at-first", useWhereThePlatformFailsAtFirst},
        {"quit", quitInAStorm},
        {"exit", exitInAStorm},
        {"exit-on-the-dispatch-thread", exitOnTheDispatchThread},
    };
    platform();
    LogCapture::instance();
    QCoreApplication application(argc, argv);
    return ways.at(argc > 1 ? argv[1] : "")();
}
