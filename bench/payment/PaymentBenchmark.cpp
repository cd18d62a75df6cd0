// SPDX-License-Identifier: Apache-2.0
// What payments cost an application: copies of answers, and an answer while many requests wait.
#include "Benchmark.h"
#include "Clock.h"
#include "Duel.h"
#include "PriceCounter.h"
#include "ReplyingPayments.h"
#include "Statistics.h"

#include <tamo/platform/PaymentService.h>
#include <tamomock/PaymentServiceInterfaceFactory.h>

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QSharedData>

#include <deque>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace tamobench {
namespace {

using tamo::platform::PaymentService;
using tamo::platform::SubscriptionTermsResponseInfo;

constexpr Target oneAndAHalf = {Target::AtMost, 1.5};

struct PlainData : QSharedData
{
    QString text;
};

/** The duration of one copy, and of its end, in nanoseconds. */
template<class Value>
double timeOfCopy(const Value& original)
{
    constexpr int copiesOfASample = 10'000;
    const std::int64_t start = now();
    for (int i = 0; i < copiesOfASample; ++i) {
        const Value copy(original);
        benchmark::DoNotOptimize(&copy);
        benchmark::ClobberMemory();
    }
    return static_cast<double>(now() - start) / copiesOfASample;
}

void measureCopies(Report& report)
{
    const SubscriptionTermsResponseInfo info("id", "sku", 1, "text");
    const QSharedDataPointer<PlainData> plain(new PlainData);
    Duel duel;
    duel.enter("answer", [&] { return timeOfCopy(info); });
    duel.enter("QSharedDataPointer", [&] { return timeOfCopy(plain); });
    duel.fight();
    duel.report(report, "copying an answer", {oneAndAHalf});
}

constexpr std::size_t many = 100'000;
constexpr std::size_t few = 10;
constexpr int samples = 20'000;

/** Takes one of the requests, or objects, that wait out of their line. */
template<class Line>
using Take = typename Line::value_type (*)(Line& line);

template<class Line>
auto takeOldest(Line& line)
{
    auto taken = std::move(line.front());
    line.pop_front();
    return taken;
}

template<class Line>
auto takeNewest(Line& line)
{
    auto taken = std::move(line.back());
    line.pop_back();
    return taken;
}

template<class Line>
auto takeAnyOne(Line& line)
{
    static std::minstd_rand random(1);
    std::swap(line[random() % line.size()], line.back());
    return takeNewest(line);
}

/** The median duration of taking one answer, in nanoseconds, while so many requests wait. */
double timeOfAnswer(ReplyingPayments& payments, std::size_t pending, Take<std::deque<int>> take)
{
    PriceCounter receiver;
    const auto ask = [&receiver] {
        PaymentService::getInstance()->requestPrice("g", "s", &receiver, PriceCounter::slot());
    };
    while (payments.ids.size() < pending)
        ask();
    std::vector<double> times;
    for (int i = 0; i < samples; ++i) {
        ask();
        const int id = take(payments.ids);
        const std::int64_t start = now();
        payments.reply(id);
        QCoreApplication::sendPostedEvents();
        times.push_back(static_cast<double>(now() - start));
    }
    return median(times);
}

/** The median duration of an object's last signal and its end, in nanoseconds, with so many of
 * them, each of which has one connection. */
double timeOfObject(std::size_t objects)
{
    using Line = std::deque<std::unique_ptr<QObject>>;
    PriceCounter receiver;
    Line line;
    const auto make = [&] {
        line.push_back(std::make_unique<QObject>());
        QObject::connect(line.back().get(), &QObject::destroyed, &receiver,
                         [&receiver] { ++receiver.count; });
    };
    while (line.size() < objects)
        make();
    std::vector<double> times;
    for (int i = 0; i < samples; ++i) {
        make();
        auto object = takeAnyOne(line);
        const std::int64_t start = now();
        object.reset();
        times.push_back(static_cast<double>(now() - start));
    }
    return median(times);
}

void measureAnswers(Report& report)
{
    ReplyingPayments* payments = nullptr;
    tamomock::PaymentServiceInterfaceFactory::setCreator(
        [&payments](int) { return payments = new ReplyingPayments; });
    PaymentService::getInstance();
    tamomock::PaymentServiceInterfaceFactory::resetCreator();

    struct Order
    {
        const char* name;
        Take<std::deque<int>> take;
        Target target;
        double withFew;
    };
    // An old one among many is in no cache of the machine's; see the last line.
    Order orders[] = {{"the newest", takeNewest, oneAndAHalf, 0},
                      {"the oldest", takeOldest, oneAndAHalf, 0},
                      {"a random", takeAnyOne, {}, 0}};
    // One process has one service: the few go first.
    for (Order& order : orders)
        order.withFew = timeOfAnswer(*payments, few, order.take);
    for (const Order& order : orders) {
        const double withMany = timeOfAnswer(*payments, many, order.take);
        report.addRatio(std::string("answer to ") + order.name + " request, 100,000 pending, p50",
                        withMany, "10 pending", order.withFew, withMany / order.withFew,
                        order.target);
    }
    const double objectOfFew = timeOfObject(few);
    const double objectOfMany = timeOfObject(many);
    report.addRatio("end of a random QObject of 100,000, p50", objectOfMany, "one of 10",
                    objectOfFew, objectOfMany / objectOfFew);
}

void measure(Report& report)
{
    measureCopies(report);
    measureAnswers(report);
}

} // namespace
} // namespace tamobench

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    return tamobench::runBenchmark(argc, argv, "payments", tamobench::measure);
}
