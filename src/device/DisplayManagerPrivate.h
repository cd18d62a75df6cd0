// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_DEVICE_DISPLAYMANAGERPRIVATE_H
#define TAMO_DEVICE_DISPLAYMANAGERPRIVATE_H

#include "ScreenContext.h"

#include "core/ConnectionSubscription.h"
#include "core/StandardZelEventHandler.h"

#include <tamo/device/DisplayManager.h>

#include <QtCore/QMap>

#include <mutex>

namespace tamo {
namespace device {

/** A DisplayManager's displays, and the handler of the screen's events. */
class DisplayManagerPrivate : public QObject, public StandardZelEventHandler
{
public:
    /** @throws tamo::Exception where the screen library fails */
    explicit DisplayManagerPrivate(DisplayManager* manager);
    ~DisplayManagerPrivate() override;

    int primaryDisplayId() const { return m_primaryDisplayId; }
    QList<int> secondaryDisplayIds() const { return m_secondaryDisplayIds; }
    Display* getDisplay(int displayId);

    /** For the manager's connectNotify() and disconnectNotify(). */
    void connected(const QMetaMethod& signal) { m_subscription.connected(signal); }
    void disconnected() { m_subscription.disconnected(); }

    void handleZelEvent(int code, zel_event_t* event) override;

private:
    void addDisplay(screen_display_t handle);
    void handleScreenEvent(screen_event_t event);
    void handleDisplayEvent(screen_event_t event);
    int eventNumber(screen_event_t event, int property, const char* name) const;
    int displayIdOf(screen_event_t event) const;

    tamomock::ScreenApi& m_screen;
    const ScreenContext m_context;
    int m_primaryDisplayId = -1;
    DisplayManager* const q;
    QList<int> m_secondaryDisplayIds;
    std::mutex m_mutex;             // guards the map; the ids never change
    QMap<int, Display*> m_displays; // the displays are the manager's children
    ConnectionSubscription m_subscription;
};

} // namespace device
} // namespace tamo

#endif
