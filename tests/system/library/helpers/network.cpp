// SPDX-License-Identifier: Apache-2.0
// An application that follows the network. It prints each report, with what the platform says when
// it is asked in the slot, and each signal of the manager's.
#include <tamo/system/NetworkStatus.h>
#include <tamo/system/NetworkStatusManager.h>

#include <QCoreApplication>

#include <iostream>
#include <string>

using tamo::system::NetworkStatus;
using tamo::system::NetworkStatusManager;

static void print(const std::string& line)
{
    std::cout << (line + '\n') << std::flush;
}

static const char* asked()
{
    return NetworkStatusManager::getInstance()->isExternalNetworkConnected() ? ", asked up"
                                                                             : ", asked down";
}

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    NetworkStatusManager* const manager = NetworkStatusManager::getInstance();
    NetworkStatus* const network = manager->networkStatus(1);
    QObject::connect(manager, &NetworkStatusManager::externalNetworkConnected,
                     [] { print("external connected"); });
    QObject::connect(manager, &NetworkStatusManager::externalNetworkDisconnected,
                     [] { print("external disconnected"); });
    // Directly, on the thread that takes the events.
    QObject::connect(network, &NetworkStatus::networkConnected,
                     [] { print(std::string("up") + asked()); });
    QObject::connect(network, &NetworkStatus::networkDisconnected,
                     [] { print(std::string("down") + asked()); });
    print("started");
    return QCoreApplication::exec();
}
