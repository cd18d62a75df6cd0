// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_CONTROLMESSAGE_H
#define TAMOBOX_CONTROLMESSAGE_H

#include <cstdint>
#include <optional>
#include <string>

namespace tamobox {

/** One message between the launcher and tamo-box-init, over a pair of SOCK_SEQPACKET sockets. */
struct ControlMessage
{
    enum class Kind : std::int32_t {
        Signal, ///< to init: `number` is a signal for the application
        Ready,  ///< to the launcher: the application runs; `number` is its process id in the box
        Note,   ///< to the launcher: `text` is a line for standard error
        Failed, ///< to the launcher: the box ends because of `text`, with the status `number`
        Ended   ///< to the launcher: the application ended; `number` is its exit status
    };

    Kind kind = Kind::Note;
    std::int32_t number = 0;
    std::string text = {}; ///< cut where it is longer than a few thousand bytes
};

/** Sends a message. False where the other side has gone. Never blocks; never raises SIGPIPE. */
bool sendControlMessage(int socket, const ControlMessage& message);

/** Receives a message, waiting for it on a blocking socket. Nothing where the other side has gone.
 */
std::optional<ControlMessage> receiveControlMessage(int socket);

} // namespace tamobox

#endif
