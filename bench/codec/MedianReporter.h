// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_BENCH_MEDIANREPORTER_H
#define TAMO_BENCH_MEDIANREPORTER_H

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace tamobench {

/** Keeps what Google Benchmark measures, instead of printing it. */
class MedianReporter : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;

    /**
     * The processor time of one iteration in nanoseconds: the median over the repetitions.
     *
     * @throws std::out_of_range for a case that has not run
     */
    double time(const std::string& name) const;

private:
    std::map<std::string, std::vector<double>> m_times;
};

} // namespace tamobench

#endif
