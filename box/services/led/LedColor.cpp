// SPDX-License-Identifier: Apache-2.0
#include "LedColor.h"

#include <array>

namespace tamobox {

namespace {

struct NamedColor
{
    LedColor color;
    const char* name;
};

constexpr std::array<NamedColor, 7> colors = {{
    {LedColor::Red, "red"},
    {LedColor::Green, "green"},
    {LedColor::Blue, "blue"},
    {LedColor::Yellow, "yellow"},
    {LedColor::Cyan, "cyan"},
    {LedColor::Magenta, "magenta"},
    {LedColor::White, "white"},
}};

} // namespace

const char* nameOf(LedColor color)
{
    for (const NamedColor& known : colors)
        if (known.color == color)
            return known.name;
    return "";
}

std::optional<LedColor> ledColorNamed(const std::string& name)
{
    for (const NamedColor& known : colors)
        if (name == known.name)
            return known.color;
    return std::nullopt;
}

std::optional<LedColor> ledColorOf(int value)
{
    if (value == 0)
        return LedColor::None;
    for (const NamedColor& known : colors)
        if (value == static_cast<int>(known.color))
            return known.color;
    return std::nullopt;
}

std::string ledColorNames()
{
    std::string names;
    for (const NamedColor& known : colors)
        names += (names.empty() ? "" : ", ") + std::string(known.name);
    return names;
}

} // namespace tamobox
