// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_CONTROLCLIENT_H
#define TAMOBOX_CONTROLCLIENT_H

#include "pps/MessageReader.h"
#include "pps/MessageWriter.h"
#include "pps/ObjectFile.h"

#include <functional>
#include <optional>
#include <string>

namespace tamobox {

/** Asks one service of the box that this process is in, through its control mailbox. */
class ControlClient
{
public:
    /** Called with each report of how far a command is; the reader stands in its `dat`. */
    using ReportHandler = std::function<void(MessageReader&)>;

    /** @param mailbox its path below `/pps`. Throws ObjectFailure. */
    explicit ControlClient(const std::string& mailbox);

    /**
     * Asks for a command and waits until it has taken effect.
     *
     * @param fill adds the command's arguments
     * @param onReport may be empty
     * @throws Failure with the service's own words where it refuses, and where nothing is heard of
     * it for 5 seconds
     */
    void ask(const std::string& command, const std::function<void(MessageWriter&)>& fill,
             const ReportHandler& onReport = {});

    /** Sends a command that is not answered; to be called while another is asked for. Throws
     * Failure. */
    void tell(const std::string& command);

private:
    std::optional<std::string> read();
    void send(const std::string& request);
    std::string await();

    std::string m_mailbox;
    std::string m_name;
    ObjectFile m_file;
};

} // namespace tamobox

#endif
