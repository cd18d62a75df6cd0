// SPDX-License-Identifier: Apache-2.0
#ifndef BOXTEST_PROCESS_H
#define BOXTEST_PROCESS_H

#include <sys/types.h>

#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace boxtest {

/** Who a process is. */
enum class User {
    Caller,  ///< who runs the tests
    Ordinary ///< a user without any privilege and without an entry in the user database
};

/** The users that tests run as: both for root, and else the caller alone, who is ordinary then. */
std::vector<User> users();

/** The word for a user in the name of a test. */
std::string nameOf(User user);

/** Executes a program as a user in place of the calling process; does not return. */
[[noreturn]] void become(const std::vector<std::string>& command, User user);

/** How long tests wait for what must come. */
inline constexpr std::chrono::seconds limit(20);

/** Waits until a condition holds; false when the limit has passed. */
bool waitUntil(const std::function<bool()>& condition);

/**
 * A program that a test has started, in a process group of its own, with its output read through
 * pipes. Destruction kills the whole group.
 */
class Process
{
public:
    /** Called in the new process just before the program is executed. */
    using Preparation = std::function<void()>;

    explicit Process(const std::vector<std::string>& command, User user = User::Caller,
                     const std::string& input = {}, const Preparation& prepare = {});
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    pid_t pid() const { return m_pid; }

    /** Waits until the output holds a text, from a place on; false when the limit has passed or the
     * output has ended. */
    bool printed(const std::string& text, std::size_t from = 0);

    /** The same of its standard error. */
    bool complained(const std::string& text);

    /**
     * Waits for its end and reads the rest of its output.
     *
     * @return the exit status; 128 plus the signal's number where one ended it; -1 when the limit
     * has passed
     */
    int wait();

    const std::string& output() const { return m_output; }
    const std::string& errors() const { return m_errors; }

private:
    bool readUntil(const std::function<bool()>& condition);

    pid_t m_pid = -1;
    bool m_reaped = false;
    int m_outputReader = -1;
    int m_errorReader = -1;
    std::string m_output;
    std::string m_errors;
};

} // namespace boxtest

#endif
