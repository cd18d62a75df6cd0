// SPDX-License-Identifier: Apache-2.0
// Prints the figures that the benchmark programs left in a file as one table.
#include "Report.h"

#include <cstdlib>
#include <exception>
#include <iostream>

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::cerr << "usage: bench_report FILE\n";
        return 2;
    }
    try {
        tamobench::Report report;
        report.load(argv[1]);
        report.print(std::cout);
        return report.hasUnmeasured() ? EXIT_FAILURE : EXIT_SUCCESS;
    } catch (const std::exception& error) {
        std::cerr << "bench_report: " << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
