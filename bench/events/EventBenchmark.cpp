// SPDX-License-Identifier: Apache-2.0
// An event of the platform: how long until the application's slot is entered, how many there can be
// in a second, and what an application object costs.
#include "Benchmark.h"
#include "ChildProcess.h"
#include "Duel.h"
#include "EventPlatform.h"
#include "MainThread.h"
#include "NavigatorMailbox.h"
#include "PpsTransport.h"
#include "QueuedRelay.h"
#include "SharedMemory.h"
#include "Statistics.h"
#include "SubscriberGroup.h"

#include <tamo/Application.h>
#include <tamo/Navigator.h>
#include <tamo/system/NetworkStatusManager.h>

#include <zel/navigator.h>

#include <fstream>
#include <iostream>
#include <string>
#include <thread>

#include <PrivatePps.h>

namespace tamobench {
namespace {

using tamo::Navigator;
using tamo::system::NetworkStatusManager;

constexpr std::size_t thumbnailSize = 64;
constexpr int runs = 7;
constexpr long burst = 100'000;
// As many at a time as fit into memory that the first of them has taken already.
constexpr long smallBurst = 1'000;
constexpr long manyEvents = 10'000'000;
constexpr long manySubscriptions = 10'000;
constexpr double kibibytesAllowed = 512;

/** Takes what is written and keeps nothing of it. */
class Nowhere : public std::streambuf
{
    int_type overflow(int_type character) override { return traits_type::not_eof(character); }
    std::streamsize xsputn(const char*, std::streamsize count) override { return count; }
};

/** Sends the library's log nowhere while it lives. */
class SilentLog
{
public:
    SilentLog() : m_before(std::cout.rdbuf(&m_nowhere)) {}
    ~SilentLog() { std::cout.rdbuf(m_before); }
    SilentLog(const SilentLog&) = delete;
    SilentLog& operator=(const SilentLog&) = delete;

private:
    Nowhere m_nowhere;
    std::streambuf* m_before;
};

double residentMemory()
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.rfind("VmRSS:", 0) == 0)
            return std::stod(line.substr(6));
    }
    throw std::runtime_error("/proc/self/status has no VmRSS");
}

/** What is measured, all of it in a thread beside the application's. */
class Measurement
{
public:
    Measurement(EventPlatform& platform, MainThread& main, MainThread& answer,
                NavigatorMailbox& mailbox, SubscriberGroup& bare)
        : m_platform(platform), m_main(main), m_answer(answer), m_mailbox(mailbox), m_bare(bare)
    {
    }

    void latency(Report& report)
    {
        QueuedRelay relay(m_main);
        const auto event = [&] {
            return m_main.time(1, [&] { m_platform.push(NAVIGATOR_SWIPE_DOWN); });
        };
        const auto floor = [&] { return m_main.time(1, [&] { relay.push(); }); };
        const auto check = [&] {
            return m_answer.time(1, [&] { m_platform.push(NAVIGATOR_ORIENTATION_CHECK); });
        };

        Duel events;
        events.enter("event", event);
        events.enter("an eventfd, then a queued call", floor);
        events.fight();
        events.report(report, "event pushed to slot run", {{Target::AtMost, 1.25}});

        Duel checks;
        checks.enter("check", check);
        checks.enter("event pushed to slot run", event);
        checks.fight();
        checks.report(report, "rotation check to answer sent", {{Target::AtMost, 1.5}});

        // Each report is another than the one before, so that each is a folded signal.
        bool isAvailable = false;
        const auto network = [&] {
            isAvailable = !isAvailable;
            return m_main.time(1, [&] { m_platform.pushReport(isAvailable); });
        };
        Duel networks;
        networks.enter("report", network);
        networks.enter("event pushed to slot run", event);
        networks.fight();
        networks.report(report, "network's report to folded signal", {{Target::AtMost, 1.3}});

        Duel thumbnails;
        thumbnails.enter("thumbnail",
                         [&] { return m_main.time(1, [&] { m_mailbox.sendThumbnail(); }); });
        thumbnails.enter("a bare publication, then an event",
                         [&] { return m_bare.publish(thumbnailSize) + event(); });
        thumbnails.fight();
        thumbnails.report(report, "navigator's message to slot", {{Target::AtMost, 1.5}});
    }

    void throughput(Report& report)
    {
        std::vector<double> ours;
        std::vector<double> theirs;
        for (int i = 0; i < runs; ++i) {
            ours.push_back(m_main.time(burst, [&] {
                for (long n = 0; n < burst; ++n)
                    m_platform.push(NAVIGATOR_SWIPE_DOWN);
            }));
            theirs.push_back(m_main.time(burst, [&] {
                for (long n = 0; n < burst; ++n)
                    QMetaObject::invokeMethod(
                        &m_main, [this] { m_main.reached(); }, Qt::QueuedConnection);
            }));
        }
        report.addSpeed("events in a row, each", median(ours) / burst,
                        "queued calls in a row, each", median(theirs) / burst,
                        medianRatio(theirs, ours), {Target::AtLeast, 0.6});
    }

    void memory(Report& report)
    {
        const auto push = [&](long count) {
            m_main.time(count, [&] {
                for (long n = 0; n < count; ++n)
                    m_platform.push(NAVIGATOR_SWIPE_DOWN);
            });
        };
        for (long n = 0; n < burst; n += smallBurst)
            push(smallBurst);
        const double before = residentMemory();
        for (long n = 0; n < manyEvents; n += smallBurst)
            push(smallBurst);
        report.addValue("memory after 10,000,000 events, more by", residentMemory() - before, "KiB",
                        {Target::AtMost, kibibytesAllowed});
    }

private:
    EventPlatform& m_platform;
    MainThread& m_main;
    MainThread& m_answer;
    NavigatorMailbox& m_mailbox;
    SubscriberGroup& m_bare;
};

void measureSubscriptions(Report& report, EventPlatform& platform)
{
    const NavigatorMailbox mailbox;
    long stops = 0;
    const auto cycle = [&](long count) {
        for (long n = 0; n < count; ++n) {
            QObject receiver;
            QObject::connect(Navigator::getInstance(), &Navigator::lowMemory, &receiver, [] {});
            Navigator::getInstance()->disconnect(&receiver);
            platform.awaitStops(++stops);
        }
    };
    cycle(manySubscriptions / 10);
    const double before = residentMemory();
    cycle(manySubscriptions);
    report.addValue("memory after 10,000 subscriptions, more by", residentMemory() - before, "KiB",
                    {Target::AtMost, kibibytesAllowed});
}

/** How long a process takes to make an object that `make` makes, in a process of its own. */
template<typename Make>
double constructionTime(const Make& make)
{
    const SharedMemory<std::int64_t> duration;
    ChildProcess process([&] {
        const SilentLog silent;
        int argc = 1;
        std::string name = "events";
        char* argv[] = {name.data(), nullptr};
        const std::int64_t start = now();
        const auto object = make(argc, argv);
        *duration = now() - start;
        ::_exit(0);
    });
    process.wait();
    return static_cast<double>(*duration);
}

struct PlainApplication
{
    PlainApplication(int& argc, char** argv) : application(argc, argv) {}
    ~PlainApplication() { thread.join(); }

    QCoreApplication application;
    std::thread thread{[] {}};
};

void measureConstruction(Report& report)
{
    std::vector<double> ours;
    std::vector<double> theirs;
    for (int i = 0; i < 3 * runs; ++i) {
        ours.push_back(constructionTime([](int& argc, char** argv) {
            return std::make_unique<tamo::Application>(argc, argv);
        }));
        theirs.push_back(constructionTime(
            [](int& argc, char** argv) { return std::make_unique<PlainApplication>(argc, argv); }));
    }
    report.addRatio("tamo::Application, constructed", median(ours), "QCoreApplication and a thread",
                    median(theirs), medianRatio(ours, theirs));
}

void measure(Report& report)
{
    measureConstruction(report);
    const tamotest::PpsFilesystem filesystem;
    PpsTransport pps("/pps/bench");
    SubscriberGroup bare(pps, 1, 1);

    const SilentLog silent;
    int argc = 1;
    std::string name = "events";
    char* argv[] = {name.data(), nullptr};
    EventPlatform platform; // goes last, and waits for what still uses it
    measureSubscriptions(report, platform);

    NavigatorMailbox mailbox;
    QCoreApplication application(argc, argv);
    MainThread main;
    MainThread answer;
    platform.onCheckAnswered = [&] { answer.reached(); };
    const Navigator* const navigator = Navigator::getInstance();
    QObject::connect(navigator, &Navigator::swipeDown, &main, [&] { main.reached(); });
    QObject::connect(navigator, &Navigator::thumbnail, &main, [&] { main.reached(); });
    const NetworkStatusManager* const network = NetworkStatusManager::getInstance();
    QObject::connect(network, &NetworkStatusManager::externalNetworkConnected, &main,
                     [&] { main.reached(); });
    QObject::connect(network, &NetworkStatusManager::externalNetworkDisconnected, &main,
                     [&] { main.reached(); });
    mailbox.awaitApplication();

    Measurement measurement(platform, main, answer, mailbox, bare);
    std::exception_ptr failure;
    std::thread thread([&] {
        try {
            measurement.latency(report);
            measurement.throughput(report);
            measurement.memory(report);
        } catch (...) {
            failure = std::current_exception();
        }
        QMetaObject::invokeMethod(&application, &QCoreApplication::quit, Qt::QueuedConnection);
    });
    application.exec();
    thread.join();
    if (failure)
        std::rethrow_exception(failure);
}

} // namespace
} // namespace tamobench

int main(int argc, char** argv)
{
    tamotest::enterPrivateNamespace(argc, argv);
    return tamobench::runBenchmark(argc, argv, "an event's way to the application",
                                   tamobench::measure);
}
