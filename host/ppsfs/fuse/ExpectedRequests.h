// SPDX-License-Identifier: Apache-2.0
#ifndef PPSFS_EXPECTEDREQUESTS_H
#define PPSFS_EXPECTEDREQUESTS_H

#include <cstddef>
#include <cstdint>

namespace ppsfs {

/**
 * Counts the open files whose reader has been told of something and is about to ask for it: whether
 * the file is readable, or what it reads. What does not come is given up, all of it at once.
 */
class ExpectedRequests
{
public:
    /** A file's own part of the count. It leaves the count by done() before it ends. */
    class Mark
    {
        friend class ExpectedRequests;
        std::uint64_t round = 0;
    };

    /** Counts a file, once. */
    void expect(Mark& mark)
    {
        if (mark.round == m_round)
            return;
        mark.round = m_round;
        ++m_files;
    }

    /** Takes a file out of the count, where it is in there. */
    void done(Mark& mark)
    {
        if (mark.round != m_round)
            return;
        mark.round = 0;
        --m_files;
    }

    bool any() const { return m_files != 0; }

    /** Expects nothing any more. */
    void giveUp()
    {
        ++m_round;
        m_files = 0;
    }

private:
    std::size_t m_files = 0;
    std::uint64_t m_round = 1;
};

} // namespace ppsfs

#endif
