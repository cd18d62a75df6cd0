// SPDX-License-Identifier: Apache-2.0
#include "NetworkStatusManagerImpl.h"

#include "NetworkStatusImpl.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QThread>

#include <algorithm>
#include <mutex>
#include <stdexcept>

namespace tamo {
namespace system {

namespace {

constexpr int externalNetworkType = 1;

} // namespace

NetworkStatusManagerImpl::NetworkStatusManagerImpl()
{
    add(std::make_unique<NetworkStatusImpl>(externalNetworkType, true));
    connect(&m_connectedMapper, &QSignalMapper::mappedInt, this,
            &NetworkStatusManagerImpl::networkIsConnected);
    connect(&m_disconnectedMapper, &QSignalMapper::mappedInt, this,
            &NetworkStatusManagerImpl::networkIsDisconnected);
    // Emitted by the ending thread itself, whoever made it.
    connect(QThread::currentThread(), &QThread::finished, this,
            &NetworkStatusManagerImpl::leaveEndingThread, Qt::DirectConnection);
}

NetworkStatusManagerImpl::~NetworkStatusManagerImpl() = default;

void NetworkStatusManagerImpl::add(std::unique_ptr<NetworkStatus> status)
{
    const int type = status->networkType();
    m_networks[type].status = std::move(status);
}

void NetworkStatusManagerImpl::watchNetworks()
{
    if (m_isWatching.exchange(true))
        return;
    try {
        for (const auto& [type, network] : m_networks) {
            // A mapper learns its number before anything can be mapped to it.
            NetworkStatus* const status = network.status.get();
            m_connectedMapper.setMapping(status, type);
            m_disconnectedMapper.setMapping(status, type);
            connect(status, &NetworkStatus::networkConnected, &m_connectedMapper,
                    qOverload<>(&QSignalMapper::map));
            connect(status, &NetworkStatus::networkDisconnected, &m_disconnectedMapper,
                    qOverload<>(&QSignalMapper::map));
        }
    } catch (...) {
        // Only the first connection subscribes, so that there is none to be taken back.
        m_isWatching = false;
        throw;
    }
}

// Otherwise what is queued to the manager would pile up in a thread that is not there any more.
void NetworkStatusManagerImpl::leaveEndingThread()
{
    const QCoreApplication* const application = QCoreApplication::instance();
    if (!application || thread() != QThread::currentThread() || thread() == application->thread())
        return;
    for (const auto& [type, network] : m_networks)
        network.status->moveToThread(application->thread());
    moveToThread(application->thread());
}

bool NetworkStatusManagerImpl::isExternalNetworkConnected()
{
    return std::any_of(m_networks.begin(), m_networks.end(), [](const auto& entry) {
        NetworkStatus& status = *entry.second.status;
        return status.isExternal() && status.isConnected();
    });
}

NetworkStatus* NetworkStatusManagerImpl::networkStatus(int networkType)
{
    return find(networkType).status.get();
}

NetworkStatusManagerImpl::Network& NetworkStatusManagerImpl::find(int networkType)
{
    const auto found = m_networks.find(networkType);
    if (found == m_networks.end())
        throw std::logic_error("Internal error: Network type not found.");
    return found->second;
}

void NetworkStatusManagerImpl::networkIsConnected(int networkID)
{
    setConnected(networkID, true);
}

void NetworkStatusManagerImpl::networkIsDisconnected(int networkID)
{
    setConnected(networkID, false);
}

void NetworkStatusManagerImpl::setConnected(int networkType, bool isConnected)
{
    bool wasConnected = false;
    bool isConnectedNow = false;
    {
        const std::lock_guard lock(m_mutex);
        wasConnected = isAnyExternalConnected();
        find(networkType).isConnected = isConnected;
        isConnectedNow = isAnyExternalConnected();
    }
    if (wasConnected == isConnectedNow)
        return;
    if (wasConnected)
        Q_EMIT externalNetworkDisconnected();
    else
        Q_EMIT externalNetworkConnected();
}

bool NetworkStatusManagerImpl::isAnyExternalConnected() const
{
    return std::any_of(m_networks.begin(), m_networks.end(), [](const auto& entry) {
        return entry.second.status->isExternal() && entry.second.isConnected;
    });
}

} // namespace system
} // namespace tamo
