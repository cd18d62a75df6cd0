// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_LEDSERVICE_H
#define TAMOBOX_LEDSERVICE_H

#include "LedSchedule.h"

#include "common/Timer.h"
#include "services/ApplicationMailbox.h"
#include "services/Publisher.h"

namespace tamobox {

/**
 * The phone's LED: takes what applications want through the mailbox `/pps/services/led/control`,
 * and publishes each flash in `/pps/services/led/status`. What it has been asked for lies in
 * `/pps/box/led`, so that the service, started again, goes on with what the clients that are still
 * there had asked.
 */
class LedService
{
public:
    explicit LedService(EventLoop& loop);

private:
    using Clock = EventLoop::Clock;

    void request(const ApplicationClient& client, MessageReader& dat);
    void cancel(const ApplicationClient& client, MessageReader& dat);
    void restore();
    void goOn();
    void publishStatus();

    Complaints m_complaints;
    Publisher m_status;
    Publisher m_kept;
    LedSchedule m_schedule;
    Timer m_timer;
    ApplicationMailbox m_mailbox;
};

} // namespace tamobox

#endif
