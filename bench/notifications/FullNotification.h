// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_BENCH_FULLNOTIFICATION_H
#define TAMO_BENCH_FULLNOTIFICATION_H

#include <tamo/platform/Notification.h>

namespace tamobench {

/** Gives a notification a value for every property, and three choices. */
inline void fill(tamo::platform::Notification& notification)
{
    notification.setBody("The update is ready. Install it?");
    notification.setLedColor(tamo::device::LedColor::Green);
    notification.setMetadata("update 1.2.3");
    notification.setTime(QDateTime::currentDateTime());
    notification.setDuration(60);
    notification.setSound("file:///usr/share/sounds/chime.wav");
    notification.setIcon(QUrl("file:///usr/share/icons/update.png"));
    for (const char* label : {"now", "tonight", "never"}) {
        auto* const choice = new tamo::platform::PromptChoice(&notification);
        choice->setLabel(label);
        choice->setMetadata(label);
    }
}

} // namespace tamobench

#endif
