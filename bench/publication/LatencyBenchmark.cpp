// SPDX-License-Identifier: Apache-2.0
// One publication to one subscriber in another process: how long until it has been read.
#include "Benchmark.h"
#include "BrokerBus.h"
#include "BusTransport.h"
#include "DaemonBus.h"
#include "Duel.h"
#include "PpsTransport.h"
#include "RelayTransport.h"

#include <array>
#include <exception>

#include <PrivatePps.h>

namespace tamobench {
namespace {

constexpr std::array<std::size_t, 3> sizes = {60, 230, 4000};
constexpr Target belowPeer = {Target::AtMost, 0.9};

void measure(Report& report)
{
    const tamotest::PpsFilesystem filesystem;
    PpsTransport pps("/pps/bench");
    RelayTransport relay(1);
    const DaemonBus daemon;
    BusTransport throughDaemon(daemon);

    std::unique_ptr<BrokerBus> broker;
    std::unique_ptr<BusTransport> throughBroker;
    try {
        broker = std::make_unique<BrokerBus>();
        throughBroker = std::make_unique<BusTransport>(*broker);
    } catch (const std::exception& error) {
        report.add({"publication through dbus-broker", "left out", error.what(), {}, {}, {}, {}});
    }

    Duel duel;
    duel.enter(pps);
    duel.enter(throughDaemon);
    if (throughBroker)
        duel.enter(*throughBroker);
    duel.enter(relay);
    for (const std::size_t size : sizes) {
        duel.fight(size);
        const std::string what = "publication, " + std::to_string(size) + " bytes, ";
        duel.report(report, what, {belowPeer});
    }
}

} // namespace
} // namespace tamobench

int main(int argc, char** argv)
{
    tamotest::enterPrivateNamespace(argc, argv);
    return tamobench::runBenchmark(argc, argv, "publication to one subscriber", tamobench::measure);
}
