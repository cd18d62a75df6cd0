// SPDX-License-Identifier: Apache-2.0
// What it costs an application to read a display's property.
#include "Benchmark.h"
#include "Clock.h"
#include "Duel.h"
#include "PlainDisplay.h"

#include <tamo/device/Display.h>
#include <tamo/device/DisplayManager.h>

#include <benchmark/benchmark.h>

#include <QCoreApplication>

#include <iostream>
#include <stdexcept>
#include <string>

namespace tamobench {
namespace {

using tamo::device::Display;
using tamo::device::DisplayManager;

constexpr int readsOfASample = 10'000;
constexpr Target threefold = {Target::AtMost, 3};

/** The duration of one read, in nanoseconds. */
template<typename Read>
double timeOf(const Read& read)
{
    const std::int64_t start = now();
    for (int i = 0; i < readsOfASample; ++i)
        benchmark::DoNotOptimize(read());
    return static_cast<double>(now() - start) / readsOfASample;
}

template<typename Read, typename PlainRead>
void compare(Report& report, const char* what, const Read& read, const PlainRead& plainRead)
{
    if (read() != plainRead())
        throw std::logic_error(std::string(what) + ": the peer reads another value");
    Duel duel;
    duel.enter("display", [&] { return timeOf(read); });
    duel.enter("returning a member", [&] { return timeOf(plainRead); });
    duel.fight();
    duel.report(report, what, {threefold});
}

void measure(Report& report)
{
    std::cout.setstate(std::ios::failbit); // the manager's log
    DisplayManager manager;
    const Display& display = *manager.getDisplay(manager.primaryDisplayId());
    std::cout.clear();
    const PlainDisplay plain;
    compare(
        report, "reading a display's id", [&] { return display.displayId(); },
        [&] { return plain.displayId(); });
    compare(
        report, "reading whether a display is attached", [&] { return display.isAttached(); },
        [&] { return plain.isAttached(); });
    compare(
        report, "reading a display's pixel size", [&] { return display.pixelSize(); },
        [&] { return plain.pixelSize(); });
    compare(
        report, "reading a display's name", [&] { return display.displayName(); },
        [&] { return plain.displayName(); });
}

} // namespace
} // namespace tamobench

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    return tamobench::runBenchmark(argc, argv, "reading a display", tamobench::measure);
}
