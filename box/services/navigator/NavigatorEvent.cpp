// SPDX-License-Identifier: Apache-2.0
#include "NavigatorEvent.h"

#include <array>

namespace tamobox {

namespace {

struct NamedCode
{
    EventCode code;
    const char* name;
};

constexpr std::array<NamedCode, 15> namedCodes = {{
    {EventCode::Invoke, "invoke"},
    {EventCode::Exit, "exit"},
    {EventCode::WindowState, "windowState"},
    {EventCode::SwipeDown, "swipeDown"},
    {EventCode::SwipeStart, "swipeStart"},
    {EventCode::LowMemory, "lowMemory"},
    {EventCode::OrientationCheck, "orientationCheck"},
    {EventCode::Orientation, "orientation"},
    {EventCode::Back, "back"},
    {EventCode::WindowActive, "windowActive"},
    {EventCode::WindowInactive, "windowInactive"},
    {EventCode::OrientationEnd, "orientationEnd"},
    {EventCode::OrientationResult, "orientationResult"},
    {EventCode::WindowLock, "windowLock"},
    {EventCode::WindowUnlock, "windowUnlock"},
}};

const char* nameOf(int code)
{
    for (const NamedCode& named : namedCodes)
        if (static_cast<int>(named.code) == code)
            return named.name;
    return nullptr;
}

} // namespace

std::string NavigatorEvent::name() const
{
    const char* const known = nameOf(code);
    return known == nullptr ? "event" : known;
}

void NavigatorEvent::writeTo(MessageWriter& message) const
{
    const auto addIfSet = [&](const char* attribute, const auto& value) {
        if (value)
            message.add(attribute, *value);
    };
    message.add("msg", name());
    if (nameOf(code) == nullptr)
        message.add("code", code);
    addIfSet("state", state);
    addIfSet("angle", angle);
    addIfSet("data", data);
    addIfSet("id", id);
    addIfSet("err", err);
    addIfSet("group", group);
}

} // namespace tamobox
