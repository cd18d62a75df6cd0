// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_DISPLAYSERVICE_H
#define TAMOBOX_DISPLAYSERVICE_H

#include "DisplayList.h"

#include "services/ControlMailbox.h"
#include "services/Publisher.h"

namespace tamobox {

/**
 * The phone's displays: publishes them, and changes them as it is told to through the mailbox
 * `/pps/box/display`. At first there is the one that is built in. What it has published lies in
 * `/pps` only, so that the service, started again, goes on from there.
 *
 * Commands: `rotate` (`id`, which may be left out for the first internal display; `rotation`: 0,
 * 90, 180, 270); `attach` (a display's members, `id` among them); `detach` (`id`).
 */
class DisplayService
{
public:
    explicit DisplayService(EventLoop& loop);

private:
    using Outcome = ControlMailbox::Outcome;

    Outcome rotate(MessageReader& arguments);
    Outcome attach(MessageReader& arguments);
    Outcome detach(MessageReader& arguments);
    void publish(const DisplayList& list);

    Publisher m_displays;
    ControlMailbox m_control;
};

} // namespace tamobox

#endif
