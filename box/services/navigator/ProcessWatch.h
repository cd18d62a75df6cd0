// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_PROCESSWATCH_H
#define TAMOBOX_PROCESSWATCH_H

#include "common/EventLoop.h"

#include <sys/types.h>

#include <functional>
#include <map>

namespace tamobox {

/** Notices when processes end. */
class ProcessWatch
{
public:
    using EndHandler = std::function<void(pid_t)>;

    /** @param loop must outlive the object */
    ProcessWatch(EventLoop& loop, EndHandler onEnd);
    ~ProcessWatch();
    ProcessWatch(const ProcessWatch&) = delete;
    ProcessWatch& operator=(const ProcessWatch&) = delete;

    /**
     * Watches a process until it has ended.
     *
     * @return false where there is none of this id, or it has ended already
     */
    bool watch(pid_t process);

    /** Whether a watched process has ended, but the loop has not told of it yet. */
    bool hasEnded(pid_t process) const;

    /** Handles the end of a watched process now. */
    void end(pid_t process);

    /** Kills a watched process; 0, or the `errno` value. */
    int kill(pid_t process) const;

private:
    EventLoop& m_loop;
    EndHandler m_onEnd;
    std::map<pid_t, Descriptor> m_descriptors;
};

} // namespace tamobox

#endif
