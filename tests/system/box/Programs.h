// SPDX-License-Identifier: Apache-2.0
#ifndef BOXTEST_PROGRAMS_H
#define BOXTEST_PROGRAMS_H

#include <string>

namespace boxtest {

/**
 * The programs under test, where every one of the users() may execute them: where they were built,
 * or, if that is out of an ordinary user's reach (a home directory of root's), in a copy that lives
 * as long as this object.
 */
class Programs
{
public:
    Programs();
    ~Programs();
    Programs(const Programs&) = delete;
    Programs& operator=(const Programs&) = delete;

    /** The path of tamo-box. */
    static std::string tamoBox();

    /** The path of one of the tests' helper programs. */
    static std::string helper(const std::string& name);

private:
    std::string m_copy; // its directory; empty where there is none
};

} // namespace boxtest

#endif
