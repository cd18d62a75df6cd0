// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_LEDSTATE_H
#define TAMOBOX_LEDSTATE_H

#include "LedColor.h"

#include <sys/types.h>

#include <optional>
#include <string>
#include <vector>

namespace tamobox {

/** What an application wants the LED to do. A client and an id of its choice are its key. */
struct LedRequest
{
    int client = 0;          ///< the mailbox's number for the application's descriptor
    pid_t process = 0;       ///< 0: outside the box
    std::string application; ///< the process's name; empty where it is unknown
    std::string id;
    LedColor color = LedColor::None;
    int remaining = 0; ///< flashes that have not begun; -1: until it is cancelled

    bool isOf(int otherClient, const std::string& otherId) const
    {
        return client == otherClient && id == otherId;
    }
};

/** What the LED does. */
struct LedState
{
    LedColor lit = LedColor::None; ///< the colour at this moment
    /** For whom it is lit, as of the beginning of the flash; the request may have ended since. */
    std::optional<LedRequest> litFor = {};
    std::vector<LedRequest> requests = {}; ///< the newest, whose flash is next, first

    /** The request whose flash is lit, or else comes next; null where none is there. */
    const LedRequest* shown() const
    {
        return litFor ? &*litFor : requests.empty() ? nullptr : &requests.front();
    }

    /** Whether a request is another one than the one that is shown. */
    bool waits(const LedRequest& request) const
    {
        return litFor ? !litFor->isOf(request.client, request.id) || litFor->color != request.color
                      : &request != shown();
    }
};

} // namespace tamobox

#endif
