// SPDX-License-Identifier: Apache-2.0
// What the LED's and the notifications' services and applications send each other: how long each is
// on its way.
#include "Benchmark.h"
#include "Duel.h"
#include "LedApplication.h"
#include "NotificationApplication.h"
#include "PpsTransport.h"
#include "SubscriberGroup.h"

#include <string>

#include <PrivatePps.h>

namespace tamobench {
namespace {

constexpr Target twice = {Target::AtMost, 2};

/** Measures a hop beside a bare publication of as many bytes. */
void measureHop(Report& report, const std::string& what, SubscriberGroup& bare, std::size_t size,
                const Duel::Sample& hop)
{
    Duel duel;
    duel.enter("application", hop);
    duel.enter("a bare read", [&] { return bare.publish(size); });
    duel.fight();
    duel.report(report, what + ", " + std::to_string(size) + " bytes", {twice});
}

void measure(Report& report)
{
    const tamotest::PpsFilesystem filesystem;
    PpsTransport pps("/pps/bench");
    SubscriberGroup bare(pps, 1, 1);
    for (const NamedDispatcher& with : dispatchers) {
        const std::string suffix = std::string(", ") + with.name;
        {
            LedApplication led(with.dispatcher);
            measureHop(report, "LED status to remainingFlashCountChanged" + suffix, bare,
                       LedApplication::flashSize(), [&] { return led.publishFlash(); });
        }
        NotificationApplication notification(with.dispatcher);
        measureHop(report, "notify() to the service's read" + suffix, bare, notification.postSize(),
                   [&] { return notification.post(); });
        measureHop(report, "choice picked to selected" + suffix, bare, notification.answerSize(),
                   [&] { return notification.choose(); });
    }
}

} // namespace
} // namespace tamobench

int main(int argc, char** argv)
{
    tamotest::enterPrivateNamespace(argc, argv);
    return tamobench::runBenchmark(argc, argv, "the way between services and applications",
                                   tamobench::measure);
}
