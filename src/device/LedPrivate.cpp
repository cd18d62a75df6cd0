// SPDX-License-Identifier: Apache-2.0
#include "LedPrivate.h"

#include "mock/ChannelShare.h"
#include "pps/ServiceMessage.h"

#include <tamo/Exception.h>

#include <QtCore/QPointer>

#include <algorithm>
#include <atomic>

namespace tamo {
namespace device {

namespace {

QString nextId()
{
    static std::atomic<unsigned> last{0};
    return QString::number(++last);
}

/** The colour's name in messages; null for what is no colour. */
QString colorName(LedColor::Type color)
{
    return LedColor::toName(color).toLower();
}

LedColor::Type litColor(const QVariantMap& map)
{
    const QVariantMap& status = tamo::detail::memberMap(map, QStringLiteral("@status"));
    const auto isLit = [&status](const QString& component) {
        return status.value(component).toString() == QLatin1String("on");
    };
    return LedColor::fromBitset(isLit(QStringLiteral("red")), isLit(QStringLiteral("green")),
                                isLit(QStringLiteral("blue")));
}

} // namespace

LedPrivate::LedPrivate(Led* led, LedColor::Type initialColor)
    : q(led)
    , id(nextId())
    , color(initialColor)
    , channel(tamomock::detail::joinChannel<tamomock::LedPpsChannel, Exception>(this))
{
}

LedPrivate::~LedPrivate()
{
    const LedLock::Guard guard(lock);
    if (remaining != 0)
        withdraw();
}

void LedPrivate::setColor(LedColor::Type newColor)
{
    const LedLock::Guard guard(lock);
    if (newColor == color)
        return;
    const bool wasActive = remaining != 0;
    if (wasActive && LedColor::toName(newColor).isNull()) {
        const QPointer<LedPrivate> self(this);
        cancel();
        if (!self)
            return;
        color = newColor;
        // A receiver may have begun a new request; in this colour it cannot any more.
        cancel();
        return;
    }
    color = newColor;
    if (wasActive) {
        const int count = remaining;
        withdraw();
        begin(count);
        sendRequest();
    }
    Q_EMIT q->colorChanged(newColor);
}

void LedPrivate::flash(int count)
{
    const LedLock::Guard guard(lock);
    const int flashes = std::max(count, unlimitedFlashes);
    if (remaining != 0) {
        if (flashes == 0)
            cancel();
        else
            remaining = flashes;
        return;
    }
    if (flashes == 0 || LedColor::toName(color).isNull())
        return;

    begin(flashes);
    const QPointer<LedPrivate> self(this);
    const auto sendUnlessChanged = [&self, thisTurn = turn] {
        // A receiver may have ended the request, begun another one, or deleted the Led.
        if (self && self->turn == thisTurn)
            self->sendRequest();
    };
    try {
        Q_EMIT q->activeChanged(true);
    } catch (...) {
        // The Led is active, and so the service hears of it.
        sendUnlessChanged();
        throw;
    }
    sendUnlessChanged();
}

void LedPrivate::cancel()
{
    const LedLock::Guard guard(lock);
    if (remaining == 0)
        return;
    withdraw();
    Q_EMIT q->activeChanged(false);
}

void LedPrivate::onReceive(const QVariantMap& map)
{
    const LedLock::Guard guard(lock);
    if (remaining == 0 || litColor(map) != color)
        return;
    if (remaining == 1) {
        cancel();
    } else if (remaining != unlimitedFlashes) {
        --remaining;
        Q_EMIT q->remainingFlashCountChanged(remaining);
    }
}

void LedPrivate::begin(int count)
{
    ++turn;
    remaining = count;
    connect(channel.data(), SIGNAL(receivePassthrough(QVariantMap)), this,
            SLOT(onReceive(QVariantMap)));
}

void LedPrivate::sendRequest()
{
    Q_EMIT send(tamo::detail::requestMessage(QStringLiteral("requestLED"),
                                             {{QStringLiteral("id"), id},
                                              {QStringLiteral("color"), colorName(color)},
                                              {QStringLiteral("blinkCount"), remaining}}));
}

void LedPrivate::withdraw()
{
    ++turn;
    disconnect(channel.data(), SIGNAL(receivePassthrough(QVariantMap)), this,
               SLOT(onReceive(QVariantMap)));
    Q_EMIT send(
        tamo::detail::requestMessage(QStringLiteral("cancelLED"), {{QStringLiteral("id"), id}}));
    remaining = 0;
}

} // namespace device
} // namespace tamo
