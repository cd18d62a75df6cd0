// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_DEVICE_DISPLAYMANAGER_H
#define TAMO_DEVICE_DISPLAYMANAGER_H

#include <tamo/export.h>

#include <QtCore/QList>
#include <QtCore/QMetaMethod>
#include <QtCore/QObject>

#include <memory>

namespace tamo {
namespace device {

class Display;
class DisplayManagerPrivate;

/**
 * The phone's displays: those that the screen library lists when the manager is constructed,
 * attached or not. One that the screen library lists later is not among them; construct another
 * manager then.
 *
 * Displays are heard of while something is connected to any signal of the manager; without that,
 * they stay as they were read. Signals, the displays' own included, are emitted on a thread of the
 * library's; a receiver in another thread gets them through its event loop, as with any queued
 * connection. A slot that is connected directly runs on that thread: it may connect and disconnect,
 * must be quick, must not wait for another thread that uses this class, and must not delete the
 * manager. When the last connection has gone, the thread ends soon after. While the application
 * object is being destroyed, nothing is emitted.
 *
 * One manager of a process is told of changes: the first that something was connected to. Where the
 * platform's event library fails, connecting throws tamo::Exception, and there is no connection
 * then. Where it only has no such events, as outside of a box, the connection holds and hears
 * nothing.
 *
 * @since 0.1
 */
class TAMO_EXPORT DisplayManager : public QObject
{
    Q_OBJECT

public:
    /**
     * Reads the displays.
     *
     * @throws tamo::Exception where the screen library fails; a line on standard output says in
     * what
     */
    explicit DisplayManager(QObject* parent = nullptr);

    /** Deletes the displays, too. When it returns, nothing is emitted any more. */
    ~DisplayManager() override;

    /** The id of the first built-in display; -1 where there is none. Any thread. */
    int primaryDisplayId() const;

    /**
     * The ids of all other displays, attached or not, built in or not, in the order in which the
     * screen library has them. Any thread.
     */
    QList<int> secondaryDisplayIds() const;

    /**
     * The display with an id, the same one in each call; the last one where the screen library
     * listed several under that id. It stays the manager's. Any thread.
     *
     * @throws tamo::Exception where there is none; a line on standard output names the id
     */
    tamo::device::Display* getDisplay(int displayId);

Q_SIGNALS:
    /** A display that was not there has been attached. */
    void displayAttached(int displayId);

    /** A display that was there has been detached; its Display stays. */
    void displayDetached(int displayId);

protected:
    void connectNotify(const QMetaMethod& signal) override;
    void disconnectNotify(const QMetaMethod& signal) override;

private:
    friend class DisplayManagerPrivate;
    const std::unique_ptr<DisplayManagerPrivate> d;
};

} // namespace device
} // namespace tamo

#endif
