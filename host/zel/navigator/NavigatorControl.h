// SPDX-License-Identifier: Apache-2.0
#ifndef ZEL_NAVIGATOR_NAVIGATORCONTROL_H
#define ZEL_NAVIGATOR_NAVIGATORCONTROL_H

#include "common/FileDescriptor.h"

#include <cstddef>
#include <mutex>

namespace zel {

/**
 * The process' way to the navigator: one descriptor of the mailbox `services/navigator/control`,
 * opened when it is first needed, and anew where the one there is has become useless, and in a
 * child process. Any thread.
 */
class NavigatorControl
{
public:
    /** The process' one; never destroyed. */
    static NavigatorControl& instance();

    NavigatorControl();
    NavigatorControl(const NavigatorControl&) = delete;
    NavigatorControl& operator=(const NavigatorControl&) = delete;

    /**
     * Sends a request.
     *
     * @return 0 or an `errno` value: ENOENT (there is no navigator), EPIPE (nobody serves it),
     * EAGAIN (it has too many requests unread), and others of open() and write()
     */
    int send(const char* text, std::size_t length);

private:
    static void resetInChild();

    std::mutex m_mutex; // held during the write(), so that requests keep the order of their calls
    host::FileDescriptor m_descriptor;
};

} // namespace zel

#endif
