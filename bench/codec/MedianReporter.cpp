// SPDX-License-Identifier: Apache-2.0
#include "MedianReporter.h"

#include "Statistics.h"

namespace tamobench {

bool MedianReporter::ReportContext(const Context&)
{
    return true;
}

void MedianReporter::ReportRuns(const std::vector<Run>& runs)
{
    for (const Run& run : runs) {
        if (run.run_type == Run::RT_Iteration)
            m_times[run.run_name.function_name].push_back(run.GetAdjustedCPUTime());
    }
}

double MedianReporter::time(const std::string& name) const
{
    return median(m_times.at(name));
}

} // namespace tamobench
