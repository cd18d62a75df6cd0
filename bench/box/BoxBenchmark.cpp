// SPDX-License-Identifier: Apache-2.0
// A box for an application that does nothing: how long it takes, and what it keeps in memory.
#include "Benchmark.h"
#include "ChildProcess.h"
#include "Clock.h"
#include "Descriptor.h"
#include "ProcessTree.h"
#include "Statistics.h"

#include <array>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>

namespace tamobench {
namespace {

constexpr int runs = 21;

using Command = std::vector<std::string>;

const Command boxWithTrue = {TAMO_BOX_PROGRAM, "run", "--", "true"};

// What the machine takes for the namespaces and the private root alone.
const Command namespacesWithTrue = {
    "bwrap", "--unshare-pid",     "--bind", "/", "/", "--proc", "/proc", "--dev-bind", "/dev",
    "/dev",  "--die-with-parent", "true"};

/** From before a command's start until after its end, in nanoseconds. */
double timeCommand(const Command& command)
{
    const std::int64_t start = now();
    ChildProcess process([&] { execute(command); });
    const int status = process.wait();
    const std::int64_t end = now();
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        throw std::runtime_error(command.front() + " failed");
    return static_cast<double>(end - start);
}

void measureTime(Report& report)
{
    std::vector<double> box;
    std::vector<double> namespaces;
    timeCommand(boxWithTrue);
    timeCommand(namespacesWithTrue);
    for (int run = 0; run < runs; ++run) {
        box.push_back(timeCommand(boxWithTrue));
        namespaces.push_back(timeCommand(namespacesWithTrue));
    }
    report.addRatio("tamo-box run -- true", median(box), "bwrap with true", median(namespaces),
                    medianRatio(box, namespaces));
    report.addValue("tamo-box run -- true, start to exit", median(box) / 1e6, "ms",
                    {Target::AtMost, 150});
}

/** Runs an application that says when it runs, and calls `look` with the box's outermost process.
 */
template<typename Look>
void whileBoxRuns(Look look)
{
    std::array<int, 2> ends = {};
    if (::pipe(ends.data()) < 0)
        throwErrno("pipe");
    const Descriptor output(ends[0], "pipe");
    Descriptor input(ends[1], "pipe");
    const ChildProcess box([&] {
        ::dup2(input.get(), STDOUT_FILENO);
        execute({TAMO_BOX_PROGRAM, "run", "--", "sh", "-c", "echo running; exec sleep 60"});
    });
    input.close();
    pollfd running = {output.get(), POLLIN, 0};
    if (::poll(&running, 1, 10'000) != 1 || (running.revents & POLLIN) == 0)
        throw std::runtime_error("the application in the box does not start");
    look(box.pid());
}

void measureMemory(Report& report)
{
    whileBoxRuns([&](pid_t box) {
        double resident = 0;
        double proportional = 0;
        for (const ProcessMemory& process : memoryOfTree(box)) {
            std::cerr << process.name << ": RSS " << process.resident << " KiB, PSS "
                      << process.proportional << " KiB\n";
            resident += process.resident;
            proportional += process.proportional;
        }
        report.addValue("every process of a box, RSS", resident / 1024, "MiB",
                        {Target::AtMost, 80});
        report.addValue("every process of a box, PSS", proportional / 1024, "MiB",
                        {Target::AtMost, 80});
    });
}

void measure(Report& report)
{
    measureTime(report);
    measureMemory(report);
}

} // namespace
} // namespace tamobench

int main(int argc, char** argv)
{
    return tamobench::runBenchmark(argc, argv, "a box", tamobench::measure);
}
