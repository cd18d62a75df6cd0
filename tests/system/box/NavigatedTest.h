// SPDX-License-Identifier: Apache-2.0
#ifndef BOXTEST_NAVIGATEDTEST_H
#define BOXTEST_NAVIGATEDTEST_H

#include "BoxTest.h"

#include <string>
#include <vector>

namespace boxtest {

/** An application that the navigator knows: the helper program tamo-test-navigated. */
struct Navigated
{
    Process* process = nullptr; ///< that runs it: `run`, or `exec`
    std::string group;          ///< its window group's id
};

/** Tests with applications that the navigator knows. */
class NavigatedTest : public BoxTest
{
protected:
    /** Starts a box with such an application; the arguments are the helper program's. */
    Box startNavigated(std::vector<std::string> arguments = {}) const;

    /** The application that a box was started with. */
    static Navigated applicationOf(const Box& box);

    /** Starts one more beside it, which comes to the foreground; the process is the caller's. */
    std::unique_ptr<Process> startBeside(const Box& box,
                                         std::vector<std::string> arguments = {}) const;
    static Navigated applicationOf(Process& process);

    /** Has an application send a request: lines with commas between. */
    void have(const Box& box, const Navigated& application, const std::string& request) const;

    /** A `tamo-box` command that goes on. */
    std::unique_ptr<Process> begin(const Box& box, std::vector<std::string> arguments) const;

    /** What is published of the applications, as JSON; waits until it holds a text. */
    std::string applicationsWith(const Box& box, const std::string& text) const;

    /** The value of an attribute in the last line of an application's output that holds a text. */
    static std::string valueIn(const Navigated& application, const std::string& text,
                               const std::string& attribute);
};

/** How often a text holds another. */
int countOf(const std::string& text, const std::string& part);

} // namespace boxtest

#endif
