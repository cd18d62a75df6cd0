// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_VIRTUALSLOTS_H
#define TAMO_TESTS_VIRTUALSLOTS_H

#include <array>
#include <cstddef>
#include <cstring>

namespace tamotest {

/** Where a virtual operation is in its class's table, as the C++ ABI of Linux has it: a pointer to
 * it is that place in bytes, plus one. */
template<typename Function>
std::ptrdiff_t slot(Function function)
{
    std::array<std::ptrdiff_t, 2> parts = {};
    static_assert(sizeof parts == sizeof function);
    std::memcpy(parts.data(), &function, sizeof parts);
    return (parts[0] - 1) / static_cast<std::ptrdiff_t>(sizeof(void*));
}

/** A class's heir: the first operation that it adds comes behind all that there are. */
template<typename Base>
class Longer : public Base
{
public:
    virtual void next() = 0;
};

} // namespace tamotest

#endif
