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

#include <random>
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

/** The place of a request that is answered next. */
using Choose = std::size_t (*)(std::size_t pending);

std::size_t newest(std::size_t pending)
{
    return pending - 1;
}

std::size_t anyOne(std::size_t pending)
{
    static std::minstd_rand random(1);
    return random() % pending;
}

/** The median duration of taking one answer, in nanoseconds, while so many requests wait. */
double timeOfAnswer(ReplyingPayments& payments, std::size_t pending, Choose choose)
{
    constexpr int samples = 20'000;
    PriceCounter receiver;
    const auto ask = [&receiver] {
        PaymentService::getInstance()->requestPrice("g", "s", &receiver, PriceCounter::slot());
    };
    while (payments.ids.size() < pending)
        ask();
    std::vector<double> times;
    for (int i = 0; i < samples; ++i) {
        ask();
        const std::size_t chosen = choose(payments.ids.size());
        const std::int64_t start = now();
        payments.reply(payments.ids[chosen]);
        QCoreApplication::sendPostedEvents();
        times.push_back(static_cast<double>(now() - start));
        payments.ids[chosen] = payments.ids.back();
        payments.ids.pop_back();
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
    // One process has one service: the few go first.
    const double few = timeOfAnswer(*payments, 10, newest);
    const double fewAnyOne = timeOfAnswer(*payments, 10, anyOne);
    const double many = timeOfAnswer(*payments, 100'000, newest);
    const double manyAnyOne = timeOfAnswer(*payments, 100'000, anyOne);
    report.addRatio("answer to the newest request, 100,000 pending, p50", many, "10 pending", few,
                    many / few, oneAndAHalf);
    // The machine's memory: what belongs to an old request is in no cache.
    report.addRatio("answer to any request, 100,000 pending, p50", manyAnyOne, "10 pending",
                    fewAnyOne, manyAnyOne / fewAnyOne);
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
