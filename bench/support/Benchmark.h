// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_BENCH_BENCHMARK_H
#define TAMO_BENCH_BENCHMARK_H

#include "Report.h"

#include <functional>
#include <string>

namespace tamobench {

/**
 * The frame of every benchmark program: runs `measure`, prints the figures that it adds to the
 * report, and with `--rows FILE` appends them to that file as well. What `measure` throws becomes a
 * line "not measured".
 *
 * @param what names the measurement in that line
 * @return the program's exit status: 0; 1 where something could not be measured; 2 for a wrong
 * argument
 */
int runBenchmark(int argc, char** argv, const std::string& what,
                 const std::function<void(Report&)>& measure);

} // namespace tamobench

#endif
