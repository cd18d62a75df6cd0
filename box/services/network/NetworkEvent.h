// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_NETWORKEVENT_H
#define TAMOBOX_NETWORKEVENT_H

#include "NetworkState.h"

namespace tamobox {

/** An event as applications are told it. */
struct NetworkEvent
{
    NetworkState state;
    std::optional<int> code = {}; ///< for trying out what no network tells; nothing: the state's

    /** Adds the event's attributes to a message. */
    void write(MessageWriter& message) const
    {
        if (code)
            message.add("msg", "event").add("code", *code);
        else
            message.add("msg", "info");
        state.write(message);
    }
};

} // namespace tamobox

#endif
