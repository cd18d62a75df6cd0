// SPDX-License-Identifier: Apache-2.0
// What notifications, choices and Leds cost a process, by themselves: no service, no /pps.
#include "Benchmark.h"
#include "Clock.h"
#include "FullNotification.h"
#include "Statistics.h"
#include "Work.h"

#include <tamo/PpsAccessor.h>
#include <tamo/device/Led.h>
#include <tamo/platform/Notification.h>
#include <tamomock/LedPpsChannel.h>
#include <tamomock/NotificationPpsChannel.h>

#include <QCoreApplication>
#include <QUuid>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <malloc.h>

namespace tamobench {
namespace {

using tamo::device::Led;
using tamo::platform::Notification;
using tamo::platform::PromptChoice;
using tamomock::LedPpsChannel;
using tamomock::NotificationPpsChannel;

constexpr int runs = 15;
constexpr int crowd = 1'000;
constexpr int generations = 100'000;

/** Nanoseconds that each of many calls takes. */
double timeOf(int count, const std::function<void()>& call)
{
    const std::int64_t start = now();
    for (int i = 0; i < count; ++i)
        call();
    return static_cast<double>(now() - start) / count;
}

/** Two things, measured in turns. */
struct Comparison
{
    Comparison(int count, const std::function<void()>& our, const std::function<void()>& their)
    {
        for (int i = 0; i < runs; ++i) {
            ours.push_back(timeOf(count, our));
            theirs.push_back(timeOf(count, their));
        }
    }

    std::vector<double> ours;
    std::vector<double> theirs;
};

/** Channels of the benchmark's own, current while they live. */
struct Channels
{
    Channels()
    {
        LedPpsChannel::setChannel(led);
        NotificationPpsChannel::setChannel(notification);
    }

    const QSharedPointer<LedPpsChannel> led =
        QSharedPointer<LedPpsChannel>::create(LedPpsChannel::WithoutPps());
    const QSharedPointer<NotificationPpsChannel> notification =
        QSharedPointer<NotificationPpsChannel>::create(NotificationPpsChannel::WithoutPps());
};

/** An answer to a notification, as it is decoded. */
QVariantMap answerTo(const QString& id)
{
    return {{"@control",
             QVariantMap{{"msg", "Invoke"}, {"dat", QVariantMap{{"id", id}, {"context", "c"}}}}}};
}

void measureBystanders(Report& report, const Channels& channels)
{
    // For nobody here: every one of them is a bystander.
    const QVariantMap map = answerTo(QUuid::createUuid().toString());
    std::vector<std::unique_ptr<Notification>> notifications;
    std::vector<std::unique_ptr<Comparer>> comparers;
    Announcer announcer;
    for (int i = 0; i < crowd; ++i) {
        notifications.push_back(std::make_unique<Notification>());
        comparers.push_back(std::make_unique<Comparer>(QUuid::createUuid().toString(),
                                                       QUuid::createUuid().toString()));
        QObject::connect(&announcer, &Announcer::announced, comparers.back().get(),
                         &Comparer::compare);
    }
    const Comparison comparison(
        100, [&] { Q_EMIT channels.notification->receivePassthrough(map); },
        [&] { Q_EMIT announcer.announced(map); });
    report.addRatio("an answer, per bystander of 1000", median(comparison.ours) / crowd,
                    "a signal, and two strings compared", median(comparison.theirs) / crowd,
                    medianRatio(comparison.ours, comparison.theirs), {Target::AtMost, 3});
}

void measureNotify(Report& report, const Channels& channels)
{
    Notification notification;
    fill(notification);
    QVariantMap sent;
    QObject::connect(channels.notification.data(), &NotificationPpsChannel::sendPassthrough,
                     channels.notification.data(), [&sent](const QVariantMap& map) { sent = map; });
    notification.notify();
    const QVariantMap message = sent;
    QByteArray text;
    QObject::disconnect(channels.notification.data(), &NotificationPpsChannel::sendPassthrough,
                        nullptr, nullptr);
    QObject::connect(channels.notification.data(), &NotificationPpsChannel::sendPassthrough,
                     channels.notification.data(),
                     [&text](const QVariantMap& map) { text = tamo::PpsAccessor::encode(map); });
    const Comparison comparison(
        2'000, [&] { notification.notify(); }, [&] { text = tamo::PpsAccessor::encode(message); });
    const QString bodies[] = {"The update is ready. Install it?",
                              "The update is there. Install it?"};
    int edition = 0;
    const Comparison changing(
        2'000,
        [&] {
            notification.setBody(bodies[++edition % 2]);
            notification.notify();
        },
        [&] { text = tamo::PpsAccessor::encode(message); });
    QObject::disconnect(channels.notification.data(), &NotificationPpsChannel::sendPassthrough,
                        nullptr, nullptr);
    report.addRatio("notify() with three choices, " + std::to_string(text.size()) + " bytes",
                    median(comparison.ours), "encoding alone", median(comparison.theirs),
                    medianRatio(comparison.ours, comparison.theirs), {Target::AtMost, 2});
    report.addRatio("... whose text has changed since", median(changing.ours), "encoding alone",
                    median(changing.theirs), medianRatio(changing.ours, changing.theirs));
}

void measureFlash(Report& report, const Channels& channels)
{
    constexpr int count = 2'000;
    Led led;
    led.flash(2 * count * runs);
    const QVariantMap status = {
        {"@status", QVariantMap{{"red", "on"}, {"green", "off"}, {"blue", "off"}}}};
    int heard = 0;
    QObject::connect(&led, &Led::remainingFlashCountChanged, [&heard] { ++heard; });
    Announcer announcer;
    Comparer comparer("on", "off");
    QObject::connect(&announcer, &Announcer::announced, &comparer, &Comparer::compare);
    const Comparison comparison(
        count, [&] { Q_EMIT channels.led->receivePassthrough(status); },
        [&] { Q_EMIT announcer.announced(status); });
    if (heard != count * runs)
        throw std::logic_error("the Led has counted something else");
    report.addRatio("LED status to remainingFlashCountChanged", median(comparison.ours),
                    "a signal, and two strings compared", median(comparison.theirs),
                    medianRatio(comparison.ours, comparison.theirs));
}

double allocated()
{
    const auto info = ::mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

/** How much memory each of a crowd takes, and how much a long succession of them leaves behind. */
template<typename Make>
void measureMemory(Report& report, const std::string& what, const Make& make)
{
    using Object = decltype(make());
    std::vector<Object> objects;
    objects.reserve(crowd);
    make().reset(); // what is made once
    const double before = allocated();
    for (int i = 0; i < crowd; ++i)
        objects.push_back(make());
    const double each = (allocated() - before) / crowd;
    objects.clear();
    for (int i = 0; i < crowd; ++i)
        make().reset();
    const double settled = allocated();
    for (int i = 0; i < generations; ++i)
        make().reset();
    report.addValue(what + ", memory of each", each, "bytes");
    report.addValue(what + ", 100000 later, more by", (allocated() - settled) / 1024, "KiB",
                    {Target::AtMost, 4});
}

void measure(Report& report)
{
    int argc = 1;
    std::string name = "notifications";
    char* argv[] = {name.data(), nullptr};
    const QCoreApplication application(argc, argv);
    const Channels channels;
    measureBystanders(report, channels);
    measureNotify(report, channels);
    measureFlash(report, channels);
    measureMemory(report, "Notification", [] { return std::make_unique<Notification>(); });
    Notification notification;
    measureMemory(report, "PromptChoice",
                  [&] { return std::make_unique<PromptChoice>(&notification); });
    measureMemory(report, "Led", [] { return std::make_unique<Led>(); });
}

} // namespace
} // namespace tamobench

int main(int argc, char** argv)
{
    return tamobench::runBenchmark(argc, argv, "notifications and the LED", tamobench::measure);
}
