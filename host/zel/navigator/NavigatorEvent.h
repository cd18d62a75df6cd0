// SPDX-License-Identifier: Apache-2.0
#ifndef ZEL_NAVIGATOR_NAVIGATOREVENT_H
#define ZEL_NAVIGATOR_NAVIGATOREVENT_H

#include "core/Domain.h"
#include "core/Event.h"

#include <optional>
#include <string>

namespace zel {

/** An event of the navigator's. Numbers that it lacks are -1, texts that it lacks are none. */
class NavigatorEvent final : public zel_event
{
public:
    explicit NavigatorEvent(int code) : zel_event(number(Domain::Navigator), code) {}

    std::optional<int> windowState;
    std::optional<int> angle;
    std::optional<std::string> groupId;
    std::optional<std::string> data;
    std::optional<std::string> id;
    std::optional<std::string> error;
};

} // namespace zel

#endif
