// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_HOSTFUNCTION_H
#define TAMO_TESTS_HOSTFUNCTION_H

#include <ostream>
#include <vector>

/** A C function of the host. */
struct HostFunction
{
    const char* name;
    bool works; ///< whether the document says that it works; otherwise, that it fails with ENOTSUP
    bool (*call)(); ///< calls it with zeros; whether it returned "none", where it does not work
};

inline std::ostream& operator<<(std::ostream& out, const HostFunction& function)
{
    return out << function.name;
}

/** All of them, generated. */
const std::vector<HostFunction>& hostFunctions();

/** Whether two results are the same, also where they are not a number. */
template<typename T>
bool isSame(T left, T right)
{
    return left == right || (left != left && right != right);
}

#endif
