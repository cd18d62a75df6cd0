// SPDX-License-Identifier: Apache-2.0
#include <tamo/system/NetworkStatusManager.h>

#include "NetworkStatusManagerImpl.h"

#include <mutex>

namespace tamo {
namespace system {

NetworkStatusManager::NetworkStatusManager() = default;

NetworkStatusManager::~NetworkStatusManager() = default;

NetworkStatusManager* NetworkStatusManager::getInstance()
{
    static std::mutex mutex;
    static NetworkStatusManagerImpl* instance = nullptr;
    NetworkStatusManagerImpl* manager = nullptr;
    {
        const std::lock_guard lock(mutex);
        if (!instance)
            instance = new NetworkStatusManagerImpl;
        manager = instance;
    }
    // Subscribing takes the registry lock, under which a slot that runs directly on the dispatch
    // thread may call this; so the one lock is not held while the other is taken.
    manager->watchNetworks();
    return manager;
}

} // namespace system
} // namespace tamo
