// SPDX-License-Identifier: Apache-2.0
#include "DisplayMembers.h"

#include "common/Failure.h"

#include <array>

namespace tamobox {

namespace {

struct NumberMember
{
    const char* name;
    int Display::*value;
    int least;
    bool isRequired;
};

struct BooleanMember
{
    const char* name;
    bool Display::*value;
};

constexpr std::array<NumberMember, 6> numberMembers = {{
    {"id", &Display::id, 1, true},
    {"width", &Display::width, 1, true},
    {"height", &Display::height, 1, true},
    {"physicalWidth", &Display::physicalWidth, 0, false},
    {"physicalHeight", &Display::physicalHeight, 0, false},
    {"rotation", &Display::rotation, 0, false},
}};

constexpr std::array<BooleanMember, 2> booleanMembers = {{
    {"attached", &Display::isAttached},
    {"detachable", &Display::isDetachable},
}};

const char* whatIsRight(const NumberMember& member)
{
    return member.least == 1 ? "a whole number above 0" : "a whole number, 0 or above";
}

void check(bool isRight, const std::string& name, const char* what)
{
    if (!isRight)
        throw Failure("the display's " + name + " must be " + what);
}

} // namespace

void changeDisplay(const MessageReader& message, Display& display)
{
    if (message.has("type")) {
        const std::string type = message.string("type").value_or("");
        check(type == "internal" || type == "external", "type", "internal or external");
        display.isInternal = type == "internal";
    }
    for (const NumberMember& member : numberMembers) {
        if (!message.has(member.name))
            continue;
        const std::optional<int> value = message.integer(member.name);
        check(value && *value >= member.least, member.name, whatIsRight(member));
        display.*member.value = *value;
    }
    check(display.rotation % 90 == 0 && display.rotation < 360, "rotation", "0, 90, 180 or 270");
    for (const BooleanMember& member : booleanMembers) {
        if (!message.has(member.name))
            continue;
        const std::optional<bool> value = message.boolean(member.name);
        check(value.has_value(), member.name, "true or false");
        display.*member.value = *value;
    }
    if (message.has("name")) {
        const std::optional<std::string> name = message.string("name");
        check(name.has_value(), "name", "a text");
        display.name = *name;
    }
}

Display readDisplay(const MessageReader& message)
{
    for (const NumberMember& member : numberMembers)
        check(!member.isRequired || message.has(member.name), member.name, whatIsRight(member));
    Display display;
    display.isDetachable = message.string("type") != "internal";
    changeDisplay(message, display);
    return display;
}

void writeDisplay(MessageWriter& message, const Display& display)
{
    message.add("name", display.name).add("type", display.isInternal ? "internal" : "external");
    for (const NumberMember& member : numberMembers)
        message.add(member.name, display.*member.value);
    for (const BooleanMember& member : booleanMembers)
        message.add(member.name, display.*member.value);
}

} // namespace tamobox
