// SPDX-License-Identifier: Apache-2.0
// The battery is published: how long until the application's slot is entered.
#include "BatteryApplication.h"
#include "Benchmark.h"
#include "Duel.h"
#include "SubscriberGroup.h"

#include <array>
#include <string>

#include <PrivatePps.h>

namespace tamobench {
namespace {

constexpr std::size_t batteryMessageSize = 32;
constexpr Target twice = {Target::AtMost, 2};

struct Case
{
    BatteryApplication::Dispatcher dispatcher;
    const char* name;
};
const std::array<Case, 2> cases = {{
    {BatteryApplication::GLib, "battery to levelChanged, GLib dispatcher"},
    {BatteryApplication::Unix, "battery to levelChanged, Qt's own dispatcher"},
}};

void measure(Report& report)
{
    const tamotest::PpsFilesystem filesystem;
    PpsTransport pps("/pps/bench");
    SubscriberGroup bare(pps, 1, 1);
    for (const Case& measured : cases) {
        BatteryApplication application(measured.dispatcher);
        Duel duel;
        duel.enter("application", [&] { return application.publish(); });
        duel.enter("a bare read", [&] { return bare.publish(batteryMessageSize); });
        duel.fight();
        duel.report(report, measured.name, {twice});
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
