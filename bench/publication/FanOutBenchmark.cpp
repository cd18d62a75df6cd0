// SPDX-License-Identifier: Apache-2.0
// One publication to many subscribers: how long until the last of them has read it.
#include "Benchmark.h"
#include "BusTransport.h"
#include "DaemonBus.h"
#include "Pause.h"
#include "PpsTransport.h"
#include "Statistics.h"
#include "SubscriberGroup.h"

#include <array>
#include <string>
#include <vector>

#include <PrivatePps.h>
#include <sys/resource.h>

namespace tamobench {
namespace {

constexpr int runs = 7;
constexpr std::size_t messageSize = 230;
constexpr Target belowPeer = {Target::AtMost, 1};
// A little above 1, for what measuring itself scatters.
constexpr Target linear = {Target::AtMost, 1.05};

struct Crowd
{
    std::size_t subscribers;
    int publicationsPerRun;
};

struct Arrangement
{
    const char* name;
    bool
        processEach; ///< every subscriber in a process of its own, or all in one with one epoll set
    std::vector<Crowd> crowds;
};

const std::array<Arrangement, 2> arrangements = {{
    {"in one process", false, {{1, 200}, {10, 100}, {100, 30}, {1000, 10}}},
    {"a process each", true, {{1, 200}, {10, 100}, {100, 30}}},
}};

/** What one run takes: the middle of its publications, in nanoseconds. */
double measureRun(SubscriberGroup& group, int publications, Pause& pause)
{
    std::vector<double> samples;
    for (int i = 0; i < publications; ++i) {
        pause.take();
        samples.push_back(group.publish(messageSize));
    }
    return median(std::move(samples));
}

void measureArrangement(const Arrangement& arrangement, Transport& ours, Transport& theirs,
                        Report& report)
{
    Pause pause;
    std::vector<double> counts;
    std::vector<double> times;
    for (const Crowd& crowd : arrangement.crowds) {
        const std::size_t processes = arrangement.processEach ? crowd.subscribers : 1;
        const std::size_t each = crowd.subscribers / processes;
        SubscriberGroup ourGroup(ours, processes, each);
        SubscriberGroup theirGroup(theirs, processes, each);
        std::vector<double> ourTimes;
        std::vector<double> theirTimes;
        for (int run = 0; run < runs; ++run) {
            ourTimes.push_back(measureRun(ourGroup, crowd.publicationsPerRun, pause));
            theirTimes.push_back(measureRun(theirGroup, crowd.publicationsPerRun, pause));
        }
        const auto count = static_cast<double>(crowd.subscribers);
        counts.push_back(count);
        times.push_back(median(ourTimes));
        report.addRatio("publication to " + std::to_string(crowd.subscribers) + " subscribers, " +
                            arrangement.name + ", per subscriber",
                        times.back() / count, theirs.name(), median(theirTimes) / count,
                        medianRatio(ourTimes, theirTimes), belowPeer);
    }
    report.addValue(std::string("growth with the subscribers, ") + arrangement.name,
                    growthExponent(counts, times), "as exponent", linear);
}

void measure(Report& report)
{
    rlimit descriptors = {};
    ::getrlimit(RLIMIT_NOFILE, &descriptors);
    descriptors.rlim_cur = descriptors.rlim_max;
    ::setrlimit(RLIMIT_NOFILE, &descriptors);

    const tamotest::PpsFilesystem filesystem;
    PpsTransport pps("/pps/bench");
    const DaemonBus daemon;
    BusTransport throughDaemon(daemon);
    for (const Arrangement& arrangement : arrangements)
        measureArrangement(arrangement, pps, throughDaemon, report);
}

} // namespace
} // namespace tamobench

int main(int argc, char** argv)
{
    tamotest::enterPrivateNamespace(argc, argv);
    return tamobench::runBenchmark(argc, argv, "publication to many subscribers",
                                   tamobench::measure);
}
