// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_POWERSERVICE_H
#define TAMOBOX_POWERSERVICE_H

#include "DrainSchedule.h"

#include "common/Timer.h"
#include "services/ControlMailbox.h"
#include "services/Publisher.h"

#include <optional>

namespace tamobox {

/**
 * The phone's power supply: publishes the battery's level and the charger's state as it is told to
 * through the mailbox `/pps/box/power`. Before it is told anything, nothing is published. What it
 * has published lies in `/pps` only, so that the service, started again, goes on from there.
 *
 * Commands: `level` (`level`: 0 to 100), `charger` (`state`: NONE, CHARGE or PLUGGED), and `drain`
 * (`from`, which may be left out for the present level, `to`, `milliseconds`), which is answered
 * when it has come to its end, with a `progress` report (`level`) at each percent and at least
 * every second.
 */
class PowerService
{
public:
    explicit PowerService(EventLoop& loop);

private:
    using Outcome = ControlMailbox::Outcome;

    struct Drain
    {
        ControlRequest request;
        DrainSchedule schedule;
        EventLoop::Clock::time_point begin;
        int nextStep = 0;
    };

    Outcome setLevel(MessageReader& arguments);
    Outcome setCharger(MessageReader& arguments);
    Outcome startDrain(const ControlRequest& request, MessageReader& arguments);
    void continueDrain();
    void stopDrain(const std::string& reason);
    void clientLeft(MailboxServer::Client client);
    std::optional<int> publishedLevel() const;

    Publisher m_battery;
    Publisher m_charger;
    std::optional<Drain> m_drain;
    Timer m_timer;
    ControlMailbox m_control;
};

} // namespace tamobox

#endif
