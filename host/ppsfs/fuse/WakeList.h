// SPDX-License-Identifier: Apache-2.0
#ifndef PPSFS_WAKELIST_H
#define PPSFS_WAKELIST_H

#include <cstddef>
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

private:
    std::vector<OpenFile*> m_files;
};

} // namespace ppsfs

#endif
