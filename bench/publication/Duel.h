// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_BENCH_DUEL_H
#define TAMO_BENCH_DUEL_H

#include "Pause.h"
#include "Report.h"
#include "SubscriberGroup.h"

#include <memory>
#include <string>
#include <vector>

namespace tamobench {

/**
 * Measures transports against each other, each with one subscriber in a process of its own. They
 * take turns of a few publications, so that whatever the machine does meanwhile happens to all of
 * them. Between two publications is a pause, after which every process sleeps, as it does on a
 * phone.
 */
class Duel
{
public:
    /** Adds a transport, which must outlive the duel. The first one is compared with the others. */
    void enter(Transport& transport);

    /** Measures with messages of that size; forgets what was measured before. */
    void fight(std::size_t size);

    /**
     * Adds p50 and p99 of the first transport beside those of every other one: medians over the
     * runs.
     *
     * @param what the beginning of each line, such as "publication, 60 bytes, "
     * @param targets for the comparison with the second, third, ... transport; none where there are
     * fewer
     */
    void report(Report& report, const std::string& what, const std::vector<Target>& targets) const;

private:
    struct Contender
    {
        explicit Contender(Transport& transport);
        void endRun();

        std::string name;
        SubscriberGroup subscriber;
        std::vector<double> run; ///< the samples of the run that is going on
        std::vector<double> p50; ///< of each run
        std::vector<double> p99;
    };

    std::vector<std::unique_ptr<Contender>> m_contenders;
    Pause m_pause;
};

} // namespace tamobench

#endif
