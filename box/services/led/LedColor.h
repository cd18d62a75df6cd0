// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_LEDCOLOR_H
#define TAMOBOX_LEDCOLOR_H

#include <optional>
#include <string>

namespace tamobox {

/** A colour that the LED can show, as a 24-bit RGB value: each component is fully lit or off. */
enum class LedColor {
    None = 0,
    Red = 0xFF0000,
    Green = 0x00FF00,
    Blue = 0x0000FF,
    Yellow = 0xFFFF00,
    Cyan = 0x00FFFF,
    Magenta = 0xFF00FF,
    White = 0xFFFFFF
};

/** The name of a colour, in lower case; empty for none. */
const char* nameOf(LedColor color);

/** The colour of a name, in lower case; nothing where there is none of that name. */
std::optional<LedColor> ledColorNamed(const std::string& name);

/** The colour of an RGB value; nothing where the LED cannot show it. 0 is LedColor::None. */
std::optional<LedColor> ledColorOf(int value);

/** "red, green, blue ...", for a sentence. */
std::string ledColorNames();

} // namespace tamobox

#endif
