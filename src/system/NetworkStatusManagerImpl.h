// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_SYSTEM_NETWORKSTATUSMANAGERIMPL_H
#define TAMO_SYSTEM_NETWORKSTATUSMANAGERIMPL_H

#include <tamo/system/NetworkStatusManager.h>

#include <QtCore/QMutex>
#include <QtCore/QSignalMapper>

#include <atomic>
#include <map>
#include <memory>

namespace tamo {
namespace system {

/**
 * The NetworkStatusManager. Reports of the networks, which come on the dispatch thread, go through
 * the mappers into the thread that the manager lives in, and are folded there.
 */
class NetworkStatusManagerImpl : public NetworkStatusManager
{
    Q_OBJECT

public:
    /** Hears of nothing yet. */
    NetworkStatusManagerImpl();
    ~NetworkStatusManagerImpl() override;

    /**
     * Begins to hear of the networks; nothing where that has been done, or another thread is just
     * doing it.
     *
     * @throws tamo::Exception where the subscription fails; the next call tries again
     */
    void watchNetworks();

    bool isExternalNetworkConnected() override;
    NetworkStatus* networkStatus(int networkType) override;

private Q_SLOTS:
    void networkIsConnected(int networkID);
    void networkIsDisconnected(int networkID);

private:
    struct Network
    {
        std::unique_ptr<NetworkStatus> status;
        bool isConnected = false; // as reported last
    };

    void add(std::unique_ptr<NetworkStatus> status);
    Network& find(int networkType);
    void setConnected(int networkType, bool isConnected);
    bool isAnyExternalConnected() const;
    void leaveEndingThread();

    std::map<int, Network> m_networks; // which there are never changes
    QRecursiveMutex m_mutex;           // guards what was reported
    QSignalMapper m_connectedMapper{this};
    QSignalMapper m_disconnectedMapper{this};
    std::atomic<bool> m_isWatching{false};
};

} // namespace system
} // namespace tamo

#endif
