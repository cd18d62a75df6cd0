// SPDX-License-Identifier: Apache-2.0
#ifndef BOXTEST_TERMINAL_H
#define BOXTEST_TERMINAL_H

#include "Process.h"

#include <sys/types.h>

#include <string>
#include <vector>

namespace boxtest {

/**
 * A terminal with a small shell that runs one command in the foreground. The shell shows
 * `[stopped]` when the command has been stopped, and at once continues it in the foreground; and
 * `[exit N]` at its end.
 */
class Terminal
{
public:
    Terminal(const std::vector<std::string>& command, User user);
    ~Terminal();
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    /** Types keys; "\x03" is what Ctrl-C sends. */
    void type(const std::string& keys);

    /** Changes the size of the window. */
    void resize(unsigned short rows, unsigned short columns);

    /** Sends a signal to the process that leads the group in the foreground. */
    void signalForeground(int signal);

    /** Waits until the screen shows a text; false when the limit has passed. */
    bool shows(const std::string& text);

    /** Everything that was shown so far. */
    const std::string& screen() const { return m_screen; }

private:
    int m_keyboard = -1;
    pid_t m_shell = -1;
    std::string m_screen;
};

} // namespace boxtest

#endif
