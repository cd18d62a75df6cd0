// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_LOGCAPTURE_H
#define TAMO_TESTS_LOGCAPTURE_H

#include "CallJournal.h"

#include <string>
#include <vector>

namespace tamotest {

/**
 * The lines that the library writes to std::cout, instead of the standard output. From the first
 * use to the end of the process, since a thread may log at any time. GoogleTest does not write to
 * std::cout.
 *
 * Everything may be called from any thread.
 */
class LogCapture
{
public:
    /** The process's only one. */
    static LogCapture& instance();

    /** The lines so far, without their ends. */
    std::vector<std::string> lines() const;

    /** The lines so far that begin with a text. */
    std::vector<std::string> linesWith(const std::string& beginning) const;

    /** Takes the lines so far, and returns those that do not begin with a text. */
    std::vector<std::string> takeWithout(const std::string& beginning);

    /** How many lines are this one. */
    int count(const std::string& line) const;

    /** Waits until a line was written so often. False: it was not within the limit. */
    bool waitFor(const std::string& line, int times = 1,
                 std::chrono::milliseconds limit = Limit) const;

    /** Whether lines are kept (the default), or thrown away: for storms. */
    void setKeeping(bool isKeeping);

    /** Forgets the lines so far. */
    void clear();

private:
    class Buffer;

    LogCapture();

    Buffer* const m_buffer; // never destroyed: std::cout has it
};

} // namespace tamotest

#endif
