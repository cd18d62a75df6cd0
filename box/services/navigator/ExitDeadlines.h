// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_EXITDEADLINES_H
#define TAMOBOX_EXITDEADLINES_H

#include <sys/types.h>

#include <chrono>
#include <map>
#include <optional>
#include <vector>

namespace tamobox {

/**
 * Until when applications that were asked to leave may stay: to the end of the shortest grace that
 * they were given, and not before the end of the longest extension that they asked for.
 */
class ExitDeadlines
{
public:
    using Clock = std::chrono::steady_clock;

    /** An application is asked to leave. */
    void begin(pid_t process, Clock::time_point graceEnd);

    /** An application asks for more time; it may do so before it is asked to leave. */
    void extend(pid_t process, Clock::time_point end);

    /** It may stay; an extension counts on. */
    void cancel(pid_t process);

    /** It has ended. */
    void remove(pid_t process) { m_processes.erase(process); }

    /** The next deadline of all. */
    std::optional<Clock::time_point> next() const;

    /** Those whose deadline has passed; they have none any longer. */
    std::vector<pid_t> takeDue(Clock::time_point now);

private:
    struct Times
    {
        std::optional<Clock::time_point> graceEnd;
        Clock::time_point extensionEnd;

        std::optional<Clock::time_point> deadline() const;
    };

    std::map<pid_t, Times> m_processes;
};

} // namespace tamobox

#endif
