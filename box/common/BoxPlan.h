// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_BOXPLAN_H
#define TAMOBOX_BOXPLAN_H

#include "Capabilities.h"
#include "Descriptor.h"

#include <signal.h>

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace tamobox {

/**
 * Everything that the launcher tells tamo-box-init when it starts it: what to run, and which of the
 * inherited descriptors is what. It travels in memory that both share, because arguments pass
 * through bwrap, which takes only so many, and the environment does too, which bwrap changes.
 */
struct BoxPlan
{
    std::string boxName;
    int controlSocket = -1;   ///< the way to the launcher, see ControlMessage
    int listeningSocket = -1; ///< where other commands connect, see BoxSocket
    std::array<int, 3> standardStreams = {-1, -1, -1}; ///< the application's; -1 where closed
    std::string workingDirectory;                ///< empty where the launcher's has been removed
    CapabilitySet capabilities = noCapabilities; ///< what the application may keep
    sigset_t signalMask = {};                    ///< the application's
    bool childSignalIgnored = false;    ///< whether the application ignores SIGCHLD from the start
    std::vector<std::string> arguments; ///< of the application; the first is its name
    std::vector<std::string> environment; ///< of the application; `NAME=value`
    std::string stateDirectory;           ///< of a kept box; empty where it is not kept
    std::string catalogue;            ///< the text of the payment system's; empty for the box's own
    std::vector<std::string> leftOut; ///< services that are not started

    /** Writes the plan into memory of its own and returns the descriptor, which exec() keeps open.
     */
    Descriptor toDescriptor() const;

    /** Reads what toDescriptor() wrote. Throws Failure where it is anything else. */
    static BoxPlan fromDescriptor(int fd);
};

} // namespace tamobox

#endif
