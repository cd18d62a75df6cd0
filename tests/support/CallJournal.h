// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_CALLJOURNAL_H
#define TAMO_TESTS_CALLJOURNAL_H

#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace tamotest {

/** How long a test waits for what it expects, at most. */
inline constexpr std::chrono::seconds Limit{30};

/** Waits until a condition holds that nobody announces. False: it did not within the limit. */
bool eventually(const std::function<bool()>& condition, std::chrono::milliseconds limit = Limit);

/** One call of an operation of a substitute. */
struct Call
{
    std::string operation; ///< such as "core.initialize" or "navigator.doneOrientationId"
    std::string arguments; ///< as text, with ", " between them; a null pointer is "null"
    std::thread::id thread;
    int errnoBefore = 0; ///< `errno` when the call began
};

/**
 * What the substitutes of the platform were called for, by whom, and which of the next calls are to
 * fail. All of them write to one journal, so that it has the order of all calls.
 *
 * Everything may be called from any thread.
 */
class CallJournal
{
public:
    /**
     * Has a later call of an operation fail, without doing anything.
     *
     * @param nth counted from now, the next one is 1
     * @param error `errno` is set to this; 0: it is left as it is
     */
    void fail(const std::string& operation, int nth = 1, int error = EIO);

    /** Has each call of an operation fail from now on, until succeed(). */
    void failAlways(const std::string& operation, int error = EIO);

    /** Takes back what fail() and failAlways() said of an operation. */
    void succeed(const std::string& operation);

    /** Operations with a planned failure that no call has met. */
    std::vector<std::string> unmetFailures() const;

    /**
     * Runs a function at the beginning of each call of an operation, in the thread that calls, with
     * no lock held. A test makes a thread wait with it. Null: no more.
     */
    void before(const std::string& operation, std::function<void()> function);

    /** The calls of an operation so far, or, without one, all of them, in their order. */
    std::vector<Call> calls(const std::string& operation = {}) const;

    /** How many calls of an operation there were. Counts those, too, that were not kept. */
    int count(const std::string& operation) const;

    /** Waits until an operation has been called so often. False: it was not within the limit. */
    bool waitForCount(const std::string& operation, int count,
                      std::chrono::milliseconds limit = Limit) const;

    /** Whether calls are kept (the default), or counted only: for storms. */
    void setKeeping(bool isKeeping);

    /** Forgets calls, counts, planned failures and functions. */
    void clear();

    /**
     * For substitutes: a call begins. `errno` is afterwards as it was before, or, if the call is to
     * fail, as the plan has it.
     *
     * @return whether it is to be carried out; false: it is to fail
     */
    template<typename... Arguments>
    bool enter(const char* operation, const Arguments&... arguments)
    {
        const int errnoBefore = errno;
        std::string text;
        (append(text, arguments), ...);
        return enterWith(operation, std::move(text), errnoBefore);
    }

private:
    struct Plan
    {
        std::map<int, int> errorOfCall; // by the operation's count
        bool isAlways = false;
        int error = 0;
    };

    static void append(std::string& text, const char* argument);
    static void append(std::string& text, const void* argument);
    static void append(std::string& text, int argument);
    static void append(std::string& text, bool argument);

    bool enterWith(const char* operation, std::string arguments, int errnoBefore);

    mutable std::mutex m_mutex; // guards everything
    mutable std::condition_variable m_called;
    std::vector<Call> m_calls;
    std::map<std::string, int> m_counts;
    std::map<std::string, Plan> m_plans;
    std::map<std::string, std::function<void()>> m_functions;
    bool m_isKeeping = true;
};

} // namespace tamotest

#endif
