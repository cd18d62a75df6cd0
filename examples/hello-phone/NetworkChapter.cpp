// SPDX-License-Identifier: Apache-2.0
#include "NetworkChapter.h"

#include "report.h"

#include <tamo/system/NetworkStatusManager.h>

using tamo::system::NetworkStatusManager;

NetworkChapter::NetworkChapter()
{
    const NetworkStatusManager* const manager = NetworkStatusManager::getInstance();
    QObject::connect(manager, &NetworkStatusManager::externalNetworkConnected,
                     [] { report(QStringLiteral("network: connected")); });
    QObject::connect(manager, &NetworkStatusManager::externalNetworkDisconnected,
                     [] { report(QStringLiteral("network: not connected")); });
}
