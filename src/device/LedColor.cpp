// SPDX-License-Identifier: Apache-2.0
#include <tamo/device/LedColor.h>

#include <algorithm>
#include <array>

namespace tamo {
namespace device {

namespace {

struct Name
{
    LedColor::Type color;
    QString name;
};
using Names = std::array<Name, 7>;

const Names& names()
{
    // Never destroyed: threads may ask while the process ends.
    static const Names& table = *new Names{{
        {LedColor::Red, QStringLiteral("Red")},
        {LedColor::Green, QStringLiteral("Green")},
        {LedColor::Blue, QStringLiteral("Blue")},
        {LedColor::Yellow, QStringLiteral("Yellow")},
        {LedColor::Cyan, QStringLiteral("Cyan")},
        {LedColor::Magenta, QStringLiteral("Magenta")},
        {LedColor::White, QStringLiteral("White")},
    }};
    return table;
}

} // namespace

LedColor::Type LedColor::fromBitset(bool red, bool green, bool blue)
{
    return static_cast<Type>((red ? Red : None) | (green ? Green : None) | (blue ? Blue : None));
}

QString LedColor::toName(Type color)
{
    const auto found = std::find_if(names().begin(), names().end(),
                                    [color](const Name& name) { return name.color == color; });
    return found == names().end() ? QString() : found->name;
}

} // namespace device
} // namespace tamo
