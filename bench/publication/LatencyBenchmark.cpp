// SPDX-License-Identifier: Apache-2.0
// One publication to one subscriber in another process: how long until it has been read.
#include "Benchmark.h"
#include "BrokerBus.h"
#include "BusTransport.h"
#include "DaemonBus.h"
#include "Duel.h"
#include "PpsTransport.h"
#include "RelayTransport.h"
#include "SubscriberGroup.h"

#include <array>
#include <exception>
#include <memory>
#include <string>
#include <vector>

#include <PrivatePps.h>

namespace tamobench {
namespace {

constexpr std::array<std::size_t, 3> sizes = {60, 230, 4000};
constexpr Target belowPeer = {Target::AtMost, 0.9};

/** A transport with its one subscriber. */
struct Line
{
    explicit Line(std::unique_ptr<Transport> way)
        : transport(std::move(way)), subscriber(*transport, 1, 1)
    {
    }

    std::unique_ptr<Transport> transport;
    SubscriberGroup subscriber;
};

void measure(Report& report)
{
    const tamotest::PpsFilesystem filesystem;
    const DaemonBus daemon;
    std::unique_ptr<BrokerBus> broker;
    try {
        broker = std::make_unique<BrokerBus>();
    } catch (const std::exception& error) {
        report.add({"publication", "", "dbus-broker", error.what(), "", "", ""});
    }

    std::vector<std::unique_ptr<Line>> lines;
    const auto add = [&](std::unique_ptr<Transport> transport) {
        lines.push_back(std::make_unique<Line>(std::move(transport)));
    };
    add(std::make_unique<PpsTransport>("/pps/bench"));
    add(std::make_unique<BusTransport>(daemon));
    add(std::make_unique<RelayTransport>(1));
    if (broker)
        add(std::make_unique<BusTransport>(*broker));

    for (const std::size_t size : sizes) {
        Duel duel;
        for (const auto& line : lines) {
            duel.enter(line->transport->name(),
                       [&line, size] { return line->subscriber.publish(size); });
        }
        duel.fight();
        duel.report(report, "publication, " + std::to_string(size) + " bytes", {belowPeer});
    }
}

} // namespace
} // namespace tamobench

int main(int argc, char** argv)
{
    tamotest::enterPrivateNamespace(argc, argv);
    return tamobench::runBenchmark(argc, argv, "publication to one subscriber", tamobench::measure);
}
