// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_BENCH_DUEL_H
#define TAMO_BENCH_DUEL_H

#include "Pause.h"
#include "Report.h"

#include <functional>
#include <string>
#include <vector>

namespace tamobench {

/**
 * Measures latencies against each other. The contenders take turns of a few samples, so that
 * whatever the machine does meanwhile happens to all of them. Before each sample is a pause, after
 * which every process sleeps, as it does on a phone.
 */
class Duel
{
public:
    /** Takes one sample: a latency in nanoseconds. */
    using Sample = std::function<double()>;

    /** Adds a contender. The first one is compared with the others. */
    void enter(const std::string& name, Sample sample);

    /** Takes seven runs of a thousand samples of each contender; forgets what was measured before.
     */
    void fight();

    /**
     * Adds p50 and p99 of the first contender beside those of every other one: medians over the
     * runs.
     *
     * @param what the beginning of each line, such as "publication, 60 bytes"
     * @param targets for the comparison with the second, third, ... contender; none where there are
     *        fewer
     */
    void report(Report& report, const std::string& what, const std::vector<Target>& targets) const;

private:
    struct Contender
    {
        void endRun();

        std::string name;
        Sample sample;
        std::vector<double> run; ///< the samples of the run that is going on
        std::vector<double> p50; ///< of each run
        std::vector<double> p99;
    };

    std::vector<Contender> m_contenders;
    Pause m_pause;
};

} // namespace tamobench

#endif
