// SPDX-License-Identifier: Apache-2.0
// A million publications with ten subscribers: whether the filesystem's memory grows.
#include "Benchmark.h"
#include "ChildProcess.h"
#include "Descriptor.h"
#include "PpsTransport.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <PrivatePps.h>
#include <sys/epoll.h>
#include <sys/eventfd.h>

namespace tamobench {
namespace {

constexpr int warmUp = 50'000;
constexpr int publications = 1'000'000;
constexpr int publicationsPerPace = 1'000;

/** Five read whole objects and five the changes; of either kind, the last one never reads. */
const std::array<const char*, 2> options = {"", "?changes"};
constexpr int subscribersOfAKind = 5;

constexpr double pagesAllowed = 16;

/** The resident memory of a process in KiB. */
double residentMemory(pid_t process)
{
    std::ifstream status("/proc/" + std::to_string(process) + "/status");
    for (std::string line; std::getline(status, line);) {
        if (line.rfind("VmRSS:", 0) == 0)
            return std::stod(line.substr(6));
    }
    throw std::runtime_error("the filesystem has gone");
}

void subscribe(const std::string& path, int ready)
{
    const Descriptor set(::epoll_create1(EPOLL_CLOEXEC), "epoll_create1");
    std::vector<std::unique_ptr<Subscription>> subscriptions;
    for (const char* option : options) {
        PpsTransport transport(path + option);
        for (int i = 0; i < subscribersOfAKind; ++i) {
            subscriptions.push_back(transport.openSubscription());
            epoll_event event = {};
            event.events = EPOLLIN;
            event.data.ptr = subscriptions.back().get();
            const bool reads = i + 1 < subscribersOfAKind;
            if (reads && ::epoll_ctl(set.get(), EPOLL_CTL_ADD, subscriptions.back()->descriptor(),
                                     &event) < 0)
                throwErrno("epoll_ctl");
        }
    }
    ::eventfd_write(ready, 1);
    for (;;) {
        std::array<epoll_event, 16> events;
        const int count = ::epoll_wait(set.get(), events.data(), events.size(), -1);
        for (int i = 0; i < count; ++i)
            static_cast<Subscription*>(events[static_cast<std::size_t>(i)].data.ptr)->receive();
    }
}

/** The text of a publication: values of changing length, and a name that comes and goes. */
std::string makeText(int number)
{
    const std::string name = "visitor" + std::to_string(number / 2 % 500);
    return "@bench\nlevel:n:" + std::to_string(number) +
           "\nnote::" + std::string(static_cast<std::size_t>(number % 200), 'x') + '\n' +
           (number % 2 == 0 ? name + "::here\n" : '-' + name + '\n');
}

void publish(Publisher& publisher, int count)
{
    for (int i = 0; i < count; ++i) {
        publisher.prepare(makeText(i));
        publisher.publish();
    }
}

void measure(Report& report)
{
    const tamotest::PpsFilesystem filesystem;
    const std::string path = "/pps/bench";
    PpsTransport pps(path);
    const auto publisher = pps.openPublisher();
    publish(*publisher, 1);

    const Descriptor ready(::eventfd(0, EFD_CLOEXEC), "eventfd");
    const ChildProcess subscribers([&] { subscribe(path, ready.get()); });
    eventfd_t opened = 0;
    if (::eventfd_read(ready.get(), &opened) < 0)
        throwErrno("eventfd_read");

    publish(*publisher, warmUp);
    const double before = residentMemory(filesystem.pid());
    double highest = before;
    for (int done = 0; done < publications; done += publicationsPerPace) {
        publish(*publisher, publicationsPerPace);
        highest = std::max(highest, residentMemory(filesystem.pid()));
    }
    const double after = residentMemory(filesystem.pid());

    report.addValue("ppsfs with ten subscribers, resident", before, "KiB");
    report.addValue("... after 1,000,000 publications, more by", after - before, "KiB",
                    {Target::AtMost, pagesAllowed});
    report.addValue("... at its highest between, more by", highest - before, "KiB",
                    {Target::AtMost, pagesAllowed});
}

} // namespace
} // namespace tamobench

int main(int argc, char** argv)
{
    tamotest::enterPrivateNamespace(argc, argv);
    return tamobench::runBenchmark(argc, argv, "memory over a million publications",
                                   tamobench::measure);
}
