// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_PAYMENTCOMMANDS_H
#define TAMOBOX_PAYMENTCOMMANDS_H

#include "PaymentService.h"

#include "services/ControlMailbox.h"
#include "services/PendingCommands.h"

namespace tamobox {

/** The payment service with the mailbox through which `tamo-box` commands reach it. */
class PaymentCommands
{
public:
    /** Throws Failure. */
    explicit PaymentCommands(EventLoop& loop);

private:
    using Outcome = ControlMailbox::Outcome;
    using Trial = PendingCommands::Trial;

    std::map<std::string, ControlMailbox::Command> commands();
    Outcome list(const ControlRequest& request, MessageReader& arguments);
    Outcome purchases(const ControlRequest& request, MessageReader& arguments);
    Outcome decide(const ControlRequest& request, MessageReader& arguments,
                   const Decision& decision);
    Trial tryToDecide(const ControlRequest& request, std::optional<int> number,
                      const Decision& decision);
    Outcome clock(const ControlRequest& request);
    Outcome advance(const ControlRequest& request, MessageReader& arguments);

    PaymentService m_service;
    ControlMailbox m_control;
    PendingCommands m_pending;
};

} // namespace tamobox

#endif
