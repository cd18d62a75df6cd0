// SPDX-License-Identifier: Apache-2.0
#ifndef PPSFS_WAKELIST_H
#define PPSFS_WAKELIST_H

#include <cstddef>
#include <utility>
#include <vector>

namespace ppsfs {

class OpenFile;

/**
 * The open files that an operation of the store has woken. They are served after it has returned,
 * so that nothing is read from the store while it changes.
 */
class WakeList
{
public:
    void add(OpenFile& file) { m_files.push_back(&file); }

    /** Forgets a file that is being closed. */
    void remove(const OpenFile& file);

    /** Answers what waits on the files in the list, and on those that this wakes in turn. */
    void serve();

    /** Says that a process has been told of something and is about to ask for it. */
    void expectRequest() { m_requestExpected = true; }

    /** Whether expectRequest() was called since this was asked last. */
    bool takeExpectation() { return std::exchange(m_requestExpected, false); }

private:
    std::vector<OpenFile*> m_files;
    bool m_requestExpected = false;
};

} // namespace ppsfs

#endif
