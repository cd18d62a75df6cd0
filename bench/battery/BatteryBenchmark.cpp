// SPDX-License-Identifier: Apache-2.0
// The battery is published: how long until the application's slot is entered.
#include "BatteryApplication.h"
#include "Benchmark.h"
#include "Duel.h"
#include "SubscriberGroup.h"

#include <string>

#include <PrivatePps.h>

namespace tamobench {
namespace {

constexpr std::size_t batteryMessageSize = 32;
constexpr Target twice = {Target::AtMost, 2};

void measure(Report& report)
{
    const tamotest::PpsFilesystem filesystem;
    PpsTransport pps("/pps/bench");
    SubscriberGroup bare(pps, 1, 1);
    for (const NamedDispatcher& with : dispatchers) {
        BatteryApplication application(with.dispatcher);
        Duel duel;
        duel.enter("application", [&] { return application.publish(); });
        duel.enter("a bare read", [&] { return bare.publish(batteryMessageSize); });
        duel.fight();
        duel.report(report, std::string("battery to levelChanged, ") + with.name, {twice});
    }
}

} // namespace
} // namespace tamobench

int main(int argc, char** argv)
{
    tamotest::enterPrivateNamespace(argc, argv);
    return tamobench::runBenchmark(argc, argv, "the battery's way to the application",
                                   tamobench::measure);
}
