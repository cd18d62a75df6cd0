// SPDX-License-Identifier: Apache-2.0
// A request to the payment system of a box and its answer, beside two bare publications there.
#include "Benchmark.h"
#include "ChildProcess.h"
#include "Duel.h"
#include "PpsTransport.h"
#include "PurchaseApplication.h"
#include "SubscriberGroup.h"
#include "TemporaryDirectory.h"

#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include <sys/wait.h>

namespace tamobench {
namespace {

constexpr Target twice = {Target::AtMost, 2};
constexpr const char* insideVariable = "TAMO_BENCH_INSIDE_BOX";
// About what a request and its answer have.
constexpr std::size_t size = 230;

void measure(Report& report)
{
    PpsTransport pps("/pps/bench");
    SubscriberGroup bare(pps, 1, 1);
    const auto twoPublications = [&] { return bare.publish(size) + bare.publish(size); };
    for (const NamedDispatcher& with : dispatchers) {
        PurchaseApplication application(with.dispatcher);
        const auto compare = [&](const std::string& what, const Duel::Sample& request) {
            Duel duel;
            duel.enter("application", request);
            duel.enter("two bare publications", twoPublications);
            duel.fight();
            duel.report(report, what + " to its answer, " + with.name, {twice});
        };
        compare("price request", [&] { return application.price(); });
        compare("purchase approved at once", [&] { return application.purchase(); });
    }
}

/** Runs this program in a box, in the directory of a package; returns its exit status. */
int runInBox(const std::vector<std::string>& arguments)
{
    const TemporaryDirectory package;
    const auto manifest = std::filesystem::path(package.path()) / "app/META-INF/MANIFEST.MF";
    std::filesystem::create_directories(manifest.parent_path());
    std::ofstream(manifest) << "Package-Name: com.example.bench\nPackage-Id: 0123456789\n";
    std::vector<std::string> command = {TAMO_BOX_PROGRAM, "run", "--"};
    command.insert(command.end(), arguments.begin(), arguments.end());
    ChildProcess box([&] {
        std::filesystem::current_path(package.path());
        ::setenv(insideVariable, "1", 1);
        execute(command);
    });
    const int status = box.wait();
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1;
}

} // namespace
} // namespace tamobench

int main(int argc, char** argv)
{
    if (std::getenv(tamobench::insideVariable) != nullptr)
        return tamobench::runBenchmark(argc, argv, "the way of a payment", tamobench::measure);
    try {
        std::vector<std::string> arguments(argv, argv + argc);
        arguments[0] = std::filesystem::read_symlink("/proc/self/exe");
        return tamobench::runInBox(arguments);
    } catch (const std::exception& error) {
        std::cerr << argv[0] << ": " << error.what() << '\n';
        return 1;
    }
}
