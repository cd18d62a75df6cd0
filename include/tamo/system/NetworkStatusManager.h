// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_SYSTEM_NETWORKSTATUSMANAGER_H
#define TAMO_SYSTEM_NETWORKSTATUSMANAGER_H

#include <tamo/export.h>

#include <QtCore/QObject>

namespace tamo {
namespace system {

class NetworkStatus;

/**
 * Whether the device can reach an external network, and the networks one by one. It hears of the
 * networks from its making on, so a thread of the library's is there from then on.
 *
 * Its signals are emitted in the thread that it lives in, through that thread's event loop. This is
 * the thread of the first getInstance(); when that thread ends, the manager moves to the
 * application object's thread, if there is one. While the application object is being destroyed,
 * nothing is emitted. A slot may call anything of the manager's.
 *
 * @since 0.1
 */
class TAMO_EXPORT NetworkStatusManager : public QObject
{
    Q_OBJECT

public:
    NetworkStatusManager();
    ~NetworkStatusManager() override;

    /**
     * The process's manager. It is made by the first call and never destroyed. May be called from
     * any thread.
     *
     * @throws tamo::Exception where the platform's event library fails; the next call tries again
     */
    static NetworkStatusManager* getInstance();

    /**
     * Asks the platform whether any external network is available now: not what the last signal
     * said. False, and a line on standard error, where the platform cannot say. May be called from
     * any thread.
     */
    virtual bool isExternalNetworkConnected() = 0;

    /**
     * A network. May be called from any thread.
     *
     * @param networkType 1 is the only one that there is
     * @return the manager's; lives as long as it
     * @throws std::logic_error for any other type
     */
    virtual NetworkStatus* networkStatus(int networkType) = 0;

Q_SIGNALS:
    /**
     * An external network was reported available, and none was before. Nothing counts as available
     * before it was reported, so the first report may come when the network has long been there.
     */
    void externalNetworkConnected();
    /** The last external network that was reported available no longer is. */
    void externalNetworkDisconnected();
};

} // namespace system
} // namespace tamo

#endif
