// SPDX-License-Identifier: Apache-2.0
#ifndef FUZZ_REQUIRE_H
#define FUZZ_REQUIRE_H

#include <cstdio>
#include <cstdlib>

/** Ends the process, which the fuzzer takes for a find, where something does not hold. */
inline void require(bool condition, const char* what)
{
    if (condition)
        return;
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

#endif
