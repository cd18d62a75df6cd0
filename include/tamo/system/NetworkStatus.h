// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_SYSTEM_NETWORKSTATUS_H
#define TAMO_SYSTEM_NETWORKSTATUS_H

#include <tamo/export.h>

#include <QtCore/QObject>

namespace tamo {
namespace system {

/**
 * The state of one network. NetworkStatusManager has the one for each network that there is.
 *
 * The signals are emitted on a thread of the library's; a receiver in another thread gets them
 * through its event loop, as with any queued connection. A slot that is connected directly runs on
 * that thread: it may ask, connect and disconnect, must be quick, and must not wait for another
 * thread that uses this class. While the application object is being destroyed, nothing is emitted.
 * Where the platform's event library fails, connecting throws tamo::Exception, and there is no
 * connection then. Where it only has no such events, as outside of a box, the connection holds and
 * hears nothing.
 *
 * @since 0.1
 */
class TAMO_EXPORT NetworkStatus : public QObject
{
    Q_OBJECT

public:
    NetworkStatus();
    ~NetworkStatus() override;

    /**
     * Asks the platform whether the network is available now: not what the last signal said. False,
     * and a line on standard error, where the platform cannot say. May be called from any thread.
     */
    virtual bool isConnected() = 0;

    /** Whether this is an external network for the manager; it never changes. From any thread. */
    virtual bool isExternal() = 0;

    /** The network type under which the manager keeps it; it never changes. From any thread. */
    virtual int networkType() = 0;

Q_SIGNALS:
    /** The platform has reported that the network is available; also where it was before. */
    void networkConnected();
    /** The platform has reported that the network is not available; also where it was not before.
     */
    void networkDisconnected();
};

} // namespace system
} // namespace tamo

#endif
