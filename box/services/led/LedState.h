// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_LEDSTATE_H
#define TAMOBOX_LEDSTATE_H

#include "LedColor.h"

#include <sys/types.h>

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
    LedColor lit = LedColor::None;    ///< the colour at this moment
    std::vector<LedRequest> requests; ///< the newest, which is shown, first; then those that wait
};

} // namespace tamobox

#endif
