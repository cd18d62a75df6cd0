// SPDX-License-Identifier: Apache-2.0
// Answers of the payment system's to values, beside the decoder of maps on the same bytes.
#include "Benchmark.h"
#include "Clock.h"
#include "Statistics.h"

#include "platform/payment/PaymentAnswer.h"

#include <tamo/PpsAccessor.h>

#include <benchmark/benchmark.h>

#include <malloc.h>
#include <stdexcept>
#include <string>
#include <vector>

namespace tamobench {
namespace {

constexpr Target half = {Target::AtLeast, 0.5};
constexpr int longList = 10'000;
/** What one answer may be, as the payment system's back end reads it. */
constexpr int maxAnswerSize = 65536;

QByteArray receipt(int number)
{
    return R"({"itemState":"2","date":"1300000000","startDate":"1300000000000",)"
           R"("endDate":"1400000000000","initialPeriod":"30","digitalGoodID":"good )" +
           QByteArray::number(number) +
           R"(","digitalGoodSKU":"sku","licenseKey":"0123456789abcdef","metaData":"mine",)"
           R"("purchaseID":")" +
           QByteArray::number(number) + R"("})";
}

QByteArray answer(const QByteArray& res, const QByteArray& dat)
{
    return "@control\nmsg::x\nid::1\nres::" + res + "\ndat:json:" + dat + "\n";
}

QByteArray list(int length)
{
    QByteArray receipts;
    for (int i = 0; i < length; ++i)
        receipts += (i == 0 ? "" : ",") + receipt(i);
    return answer("getExistingPurchasesSuccess", '[' + receipts + ']');
}

auto read(const QByteArray& text)
{
    return tamo::platform::readPaymentAnswer(text.constData(),
                                             static_cast<std::size_t>(text.size()));
}

template<class Work>
double timeOf(int repetitions, const Work& work)
{
    const std::int64_t start = now();
    for (int i = 0; i < repetitions; ++i)
        benchmark::DoNotOptimize(work());
    return static_cast<double>(now() - start) / repetitions;
}

/** Compares the two on a text, in turns; returns the duration of ours in nanoseconds. */
double compare(Report& report, const std::string& what, const QByteArray& text)
{
    constexpr int runs = 31;
    constexpr int bytesOfARun = 2'000'000;
    if (!read(text))
        throw std::logic_error(what + ": not an answer");
    const int repetitions = std::max(1, bytesOfARun / static_cast<int>(text.size()));
    std::vector<double> ours;
    std::vector<double> theirs;
    for (int run = 0; run < runs; ++run) {
        ours.push_back(timeOf(repetitions, [&] { return read(text); }));
        theirs.push_back(timeOf(repetitions, [&] { return tamo::PpsAccessor::decode(text); }));
    }
    report.addSpeed(what, median(ours), "the map decoder", median(theirs),
                    1 / medianRatio(ours, theirs), half);
    return median(ours);
}

/** How long a list one answer holds. */
int longestList()
{
    int length = maxAnswerSize / static_cast<int>(receipt(999).size());
    while (list(length).size() > maxAnswerSize)
        --length;
    return length;
}

double bytesInUse()
{
    return static_cast<double>(mallinfo2().uordblks);
}

void measure(Report& report)
{
    compare(report, "reading a receipt", answer("paymentSystemSuccess", receipt(1)));
    const int length = longestList();
    const double some =
        compare(report, "reading a list of " + std::to_string(length), list(length));
    const QByteArray text = list(longList);
    const double all = compare(report, "reading a list of 10,000", text);
    report.addValue("reading lists, growth exponent",
                    growthExponent({double(length), double(longList)}, {some, all}), "",
                    {Target::AtMost, 1.1});
    const double before = bytesInUse();
    const auto response = read(text);
    report.addValue("a receipt in a list, memory", (bytesInUse() - before) / longList, "bytes");
}

} // namespace
} // namespace tamobench

int main(int argc, char** argv)
{
    return tamobench::runBenchmark(argc, argv, "reading receipts", tamobench::measure);
}
