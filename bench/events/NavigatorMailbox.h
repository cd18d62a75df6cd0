// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_BENCH_NAVIGATORMAILBOX_H
#define TAMO_BENCH_NAVIGATORMAILBOX_H

#include "Descriptor.h"

#include <string>

namespace tamobench {

/** Serves the navigator's mailbox of events, as its service does; the application is its client. */
class NavigatorMailbox
{
public:
    NavigatorMailbox();

    /** Waits until the application has opened the mailbox. */
    void awaitApplication();

    /** Tells the application that its window is a thumbnail. */
    void sendThumbnail();

private:
    Descriptor m_mailbox;
    std::string m_message;
};

} // namespace tamobench

#endif
