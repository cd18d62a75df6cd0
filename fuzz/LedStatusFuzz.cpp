// SPDX-License-Identifier: Apache-2.0
// Any text as the LED service's status: a flash is counted, or it is not.
#include "DecodedAnswer.h"

#include <tamo/device/Led.h>
#include <tamomock/LedPpsChannel.h>

using tamo::device::Led;
using tamo::device::LedColor;
using tamomock::LedPpsChannel;

namespace {

struct Flashing
{
    Flashing() { LedPpsChannel::setChannel(channel); }

    const QSharedPointer<LedPpsChannel> channel =
        QSharedPointer<LedPpsChannel>::create(LedPpsChannel::WithoutPps());
};

bool isOn(const QVariantMap& status, const char* component)
{
    return status.value(component).toString() == "on";
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static auto& flashing = *new Flashing;
    const auto map = tamofuzz::decodedAnswer(data, size);
    if (!map)
        return 0;

    const QVariantMap status = map->value("@status").toMap();
    const LedColor::Type lit =
        LedColor::fromBitset(isOn(status, "red"), isOn(status, "green"), isOn(status, "blue"));
    for (const LedColor::Type color : {LedColor::Red, LedColor::Cyan, LedColor::White}) {
        Led led(color);
        led.flash(2);
        Q_EMIT flashing.channel->receivePassthrough(*map);
        tamofuzz::require(led.remainingFlashCount() == (lit == color ? 1 : 2), "wrongly counted");
        Q_EMIT flashing.channel->receivePassthrough(*map);
        tamofuzz::require(led.isActive() == (lit != color), "the last flash was taken wrongly");
    }
    return 0;
}
