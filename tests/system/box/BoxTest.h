// SPDX-License-Identifier: Apache-2.0
#ifndef BOXTEST_BOXTEST_H
#define BOXTEST_BOXTEST_H

#include "Process.h"

#include <gmock/gmock.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace boxtest {

/** What a command that was run to its end had to say. */
struct Result
{
    int status = -1;
    std::string output;
    std::string errors;
};

void PrintTo(const Result& result, std::ostream* stream);

/** A box that runs, with the process ids that its parts have outside. */
struct Box
{
    std::string name;
    std::unique_ptr<Process> launcher;
    pid_t bwrap = -1;
    pid_t init = -1;
    ino_t processNamespace = 0;

    /** The process in the box that executes a program (its first 15 letters); -1 where there is
     * none. */
    pid_t find(const std::string& program) const;

    /**
     * Sends a signal to the process in the box that executes a program.
     *
     * @return its process id, outside
     * @throws std::runtime_error where there is none
     */
    pid_t signal(const std::string& program, int number) const;

    /** Whether the box has ended and nothing of it is left. */
    bool isGone() const;
};

/**
 * Runs tamo-box as each of the users(), and checks after each test that no process and no mount of
 * a box is left. Tests that use it are instantiated with BOX_TEST_USERS.
 */
class BoxTest : public testing::TestWithParam<User>
{
protected:
    void SetUp() override;
    void TearDown() override;

    /** The command line for tamo-box with some arguments. */
    static std::vector<std::string> tamoBox(std::vector<std::string> arguments);

    /** The path of one of the tests' helper programs. */
    static std::string helper(const std::string& name);

    /** Runs tamo-box to its end. */
    Result run(const std::vector<std::string>& arguments, const std::string& input = {}) const;

    /** Starts a box, under a name of its own, and waits until the application has printed
     * `started`. The launcher is prepared as Process says. */
    Box start(std::vector<std::string> application, const std::string& started = "started",
              const Process::Preparation& prepare = {}) const;

    /** Starts a box whose application does nothing until it is ended. */
    Box startIdle() const;

    /** The same, with options for `run`, and under a name that was used before or a new one. */
    Box startIdleWith(const std::vector<std::string>& options, const std::string& name = {},
                      const Process::Preparation& prepare = {}) const;

    /** Runs tamo-box to its end, with `--box` for a box. */
    Result in(const Box& box, std::vector<std::string> arguments,
              const std::string& input = {}) const;

private:
    static std::string uniqueName();
    Box startNamed(const std::string& name, std::vector<std::string> options,
                   const std::vector<std::string>& application, const std::string& started,
                   const Process::Preparation& prepare) const;

    std::vector<std::string> m_mountsBefore;
    mutable std::vector<std::function<bool()>> m_boxesGone;
};

/** That a command failed with a status and exactly one line that holds a text. */
testing::Matcher<const Result&> failsWith(int status, const std::string& text);

/** That a command succeeded, without a word on standard error. */
testing::Matcher<const Result&> succeeds();

/** The ending of a test's name for the user that it runs as. */
std::string userName(const testing::TestParamInfo<User>& info);

/** Instantiates the tests of a BoxTest for each of the users(). */
#define BOX_TEST_USERS(suite)                                                                      \
    INSTANTIATE_TEST_SUITE_P(, suite, testing::ValuesIn(boxtest::users()), boxtest::userName)

} // namespace boxtest

#endif
