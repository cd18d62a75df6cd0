// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_BENCH_PROCESSTREE_H
#define TAMO_BENCH_PROCESSTREE_H

#include <string>
#include <vector>

#include <sys/types.h>

namespace tamobench {

/** One process and what it keeps in memory, in KiB. */
struct ProcessMemory
{
    std::string name;
    double resident = 0;     ///< all its pages (RSS)
    double proportional = 0; ///< its share of pages that others have too (PSS)
};

/** A process and all its descendants as they are now. Needs the right to read their memory maps. */
std::vector<ProcessMemory> memoryOfTree(pid_t root);

} // namespace tamobench

#endif
