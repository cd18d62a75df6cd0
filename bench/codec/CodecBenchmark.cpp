// SPDX-License-Identifier: Apache-2.0
// PPS text to maps and back, beside JSON.
#include "Answer.h"
#include "Benchmark.h"
#include "JsonPeers.h"
#include "MedianReporter.h"
#include "Statistics.h"

#include <tamo/PpsAccessor.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <functional>
#include <sstream>
#include <stdexcept>
#include <string>

namespace tamobench {
namespace {

using tamo::PpsAccessor;

const std::array<std::size_t, 5> sizes = {100, 1'000, 10'000, 100'000, 1'000'000};

/** A kind of message that can be as long as one likes. */
struct Shape
{
    const char* name;
    QVariantMap (*make)(int entries);
};

QVariantMap makeRecord(int number)
{
    return {{"id", double(number)},
            {"label", QString("entry number %1").arg(number)},
            {"enabled", number % 2 == 0},
            {"ratio", number / 8.0}};
}

QVariantMap makeAttributes(int entries)
{
    QVariantMap map;
    for (int i = 0; i < entries; ++i) {
        const QString name = QString("attribute%1").arg(i, 6, 10, QLatin1Char('0'));
        if (i % 2 == 0)
            map.insert(name, QString("the value of number %1").arg(i));
        else
            map.insert(name, i / 8.0);
    }
    return map;
}

QVariantMap makeRecords(int entries)
{
    QVariantList list;
    for (int i = 0; i < entries; ++i)
        list.append(makeRecord(i));
    return {{"entries", list}};
}

const std::array<Shape, 2> shapes = {{
    {"flat attributes", makeAttributes},
    {"an array of objects", makeRecords},
}};

/** A map of a shape whose text has about that many bytes. */
QVariantMap makeMap(const Shape& shape, std::size_t size)
{
    const auto length = [&](int entries) {
        return static_cast<std::size_t>(PpsAccessor::encode(shape.make(entries)).size());
    };
    const std::size_t perEntry = (length(101) - length(1)) / 100;
    return shape.make(std::max(1, static_cast<int>(size / perEntry)));
}

std::string caseName(const char* operation, const Shape& shape, std::size_t size)
{
    return std::string(operation) + '/' + shape.name + '/' + std::to_string(size);
}

template<typename Operation>
void define(const std::string& name, Operation operation)
{
    benchmark::RegisterBenchmark(name.c_str(), [operation](benchmark::State& state) {
        for (auto _ : state)
            benchmark::DoNotOptimize(operation());
    });
}

void defineAnswer()
{
    const QByteArray text = Answer::text();
    const QByteArray json = Answer::json();
    const QVariantMap attributes = Answer::attributes();
    const auto padded = std::make_shared<simdjson::padded_string>(
        json.constData(), static_cast<std::size_t>(json.size()));
    const auto treeParser = std::make_shared<simdjson::dom::parser>();
    const auto streamParser = std::make_shared<simdjson::ondemand::parser>();

    const std::array<std::pair<const char*, std::function<QVariantMap()>>, 5> decoders = {{
        {"decode", [=] { return PpsAccessor::decode(text); }},
        {"decode by hand", [] { return Answer::byHand(); }},
        {"decode simdjson tree", [=] { return decodeWithTree(*treeParser, *padded); }},
        {"decode simdjson on demand", [=] { return decodeOnDemand(*streamParser, *padded); }},
        {"decode QJsonDocument",
         [=] { return QJsonDocument::fromJson(json).object().toVariantMap(); }},
    }};
    for (const auto& [name, decoder] : decoders) {
        if (decoder() != Answer::byHand())
            throw std::logic_error(std::string(name) + " makes another map");
        define(name, decoder);
    }
    define("encode", [=] { return PpsAccessor::encode(attributes); });
    define("encode QJsonDocument",
           [=] { return QJsonDocument::fromVariant(attributes).toJson(QJsonDocument::Compact); });
}

void defineSizes()
{
    for (const Shape& shape : shapes) {
        for (const std::size_t size : sizes) {
            const QVariantMap map = makeMap(shape, size);
            const QByteArray text = PpsAccessor::encode(map);
            define(caseName("decode", shape, size), [=] { return PpsAccessor::decode(text); });
            define(caseName("encode", shape, size), [=] { return PpsAccessor::encode(map); });
        }
    }
}

void reportAnswer(const MedianReporter& medians, Report& report)
{
    const double decode = medians.time("decode");
    const double byHand = medians.time("decode by hand");
    const double simdjson =
        std::min(medians.time("decode simdjson tree"), medians.time("decode simdjson on demand"));
    const double document = medians.time("decode QJsonDocument");
    const double encode = medians.time("encode");
    const double toJson = medians.time("encode QJsonDocument");

    const std::string size = std::to_string(Answer::text().size()) + " bytes";
    report.addRatio("decode, " + size, decode, "the map built by hand", byHand, decode / byHand,
                    {Target::AtMost, 1.25});
    report.addSpeed("decode, " + size, decode, "simdjson", simdjson, simdjson / decode,
                    {Target::AtLeast, 1});
    report.addSpeed("decode, " + size, decode, "QJsonDocument", document, document / decode,
                    {Target::AtLeast, 1.5});
    report.addSpeed("encode, the same map", encode, "QJsonDocument", toJson, toJson / encode,
                    {Target::AtLeast, 10});
}

void reportSizes(const MedianReporter& medians, Report& report)
{
    for (const Shape& shape : shapes) {
        for (const char* operation : {"decode", "encode"}) {
            std::vector<double> lengths;
            std::vector<double> times;
            std::ostringstream perByte;
            perByte.precision(3);
            for (const std::size_t size : sizes) {
                const auto length =
                    static_cast<double>(PpsAccessor::encode(makeMap(shape, size)).size());
                lengths.push_back(length);
                times.push_back(medians.time(caseName(operation, shape, size)));
                perByte << (size == sizes.front() ? "" : " ") << times.back() / length;
            }
            // A little above 1, for caches that a megabyte of map no longer fits.
            const Target linear = {Target::AtMost, 1.05};
            const double exponent = growthExponent(lengths, times);
            std::ostringstream growth;
            growth.precision(3);
            growth << "size ^ " << exponent;
            report.add({std::string(operation) + ", " + shape.name + ", 100 bytes to 1 MB",
                        perByte.str() + " ns/byte",
                        "linear growth",
                        {},
                        growth.str(),
                        linear.text("as exponent"),
                        linear.verdict(exponent)});
        }
    }
}

void measure(Report& report)
{
    defineAnswer();
    defineSizes();

    // Every case is repeated, in random order, so that the machine's drift meets all of them.
    std::string program = "bench_codec";
    std::string interleave = "--benchmark_enable_random_interleaving=true";
    std::string repeat = "--benchmark_repetitions=9";
    std::string length = "--benchmark_min_time=0.04";
    std::array<char*, 5> arguments = {program.data(), interleave.data(), repeat.data(),
                                      length.data(), nullptr};
    int count = 4;
    benchmark::Initialize(&count, arguments.data());

    MedianReporter medians;
    benchmark::RunSpecifiedBenchmarks(&medians);
    reportAnswer(medians, report);
    reportSizes(medians, report);
}

} // namespace
} // namespace tamobench

int main(int argc, char** argv)
{
    return tamobench::runBenchmark(argc, argv, "the encoder and the decoder", tamobench::measure);
}
