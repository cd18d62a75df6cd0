// SPDX-License-Identifier: Apache-2.0
#include "Benchmark.h"

#include <CLI/CLI.hpp>

#include <cstdlib>
#include <exception>
#include <iostream>

namespace tamobench {

int runBenchmark(int argc, char** argv, const std::string& what,
                 const std::function<void(Report&)>& measure)
{
    CLI::App options("Measures " + what + ".");
    std::string rows;
    options.add_option("--rows", rows, "Append the figures to this file, columns apart by tabs");
    try {
        options.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return options.exit(error) == 0 ? EXIT_SUCCESS : 2;
    }

    Report report;
    try {
        measure(report);
    } catch (const std::exception& error) {
        report.addUnmeasured(what, error.what());
    }
    report.print(std::cout);
    if (!rows.empty())
        report.appendTo(rows);
    return report.hasUnmeasured() ? EXIT_FAILURE : EXIT_SUCCESS;
}

} // namespace tamobench
