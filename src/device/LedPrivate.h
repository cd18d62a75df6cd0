// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_DEVICE_LEDPRIVATE_H
#define TAMO_DEVICE_LEDPRIVATE_H

#include "LedLock.h"

#include <tamo/device/Led.h>
#include <tamomock/LedPpsChannel.h>

#include <QtCore/QObject>
#include <QtCore/QSharedPointer>
#include <QtCore/QString>
#include <QtCore/QVariantMap>

#include <memory>

namespace tamo {
namespace device {

/** The count of a request that goes on until it is cancelled. */
constexpr int unlimitedFlashes = -1;

/** A Led's request, and its share of the channel. Without a parent until the Led is moved to
 * another thread, its child from then on. */
class LedPrivate : public QObject
{
    Q_OBJECT

public:
    /** @throws tamo::Exception where there is no channel */
    LedPrivate(Led* led, LedColor::Type initialColor);
    /** Withdraws the request without a signal. */
    ~LedPrivate() override;

    void setColor(LedColor::Type newColor);
    void flash(int count);
    void cancel();

    Led* const q;
    const QString id;
    /** Over what follows, and held by each operation. */
    const std::shared_ptr<LedLock> lock = std::make_shared<LedLock>();
    LedColor::Type color;
    int remaining = 0;
    const QSharedPointer<tamomock::LedPpsChannel> channel;

Q_SIGNALS:
    void send(const QVariantMap& message);

public Q_SLOTS:
    void onReceive(const QVariantMap& map);

private:
    void begin(int count);
    void sendRequest();
    void withdraw();

    /** Counts requests and withdrawals, for who has emitted a signal to see whether it is still the
     * same request. */
    unsigned turn = 0;
};

} // namespace device
} // namespace tamo

#endif
