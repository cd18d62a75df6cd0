// SPDX-License-Identifier: Apache-2.0
// Leds that several threads use, and whose slots use each other's.
#include <tamo/device/Led.h>

#include "LedService.h"

#include <QCoreApplication>
#include <QTest>
#include <QThread>

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

using namespace std::chrono_literals;
using tamo::device::Led;
using tamo::device::LedColor;

namespace {

/** Where threads wait until all of them have come. Ends the program where they do not. */
class Meeting
{
public:
    explicit Meeting(int number) : m_missing(number) {}

    void come()
    {
        std::unique_lock lock(m_mutex);
        if (--m_missing == 0)
            m_complete.notify_all();
        if (!m_complete.wait_for(lock, 60s, [this] { return m_missing <= 0; })) {
            std::fprintf(stderr, "a thread was locked out\n");
            std::abort();
        }
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_complete;
    int m_missing;
};

class LedThreadsTest : public testing::Test
{
protected:
    ~LedThreadsTest() override
    {
        // What was sent in other threads is queued to the channel's.
        QCoreApplication::sendPostedEvents();
    }

    /** Runs something in threads, and this one's event loop meanwhile. Ends the program where that
     * takes too long. */
    static void runInThreads(const std::vector<std::function<void()>>& functions)
    {
        Meeting end(static_cast<int>(functions.size()) + 1);
        std::vector<std::thread> threads;
        threads.reserve(functions.size());
        for (const auto& function : functions)
            threads.emplace_back([&function, &end] {
                function();
                end.come();
            });
        end.come();
        for (std::thread& thread : threads)
            thread.join();
    }

    tamotest::LedService service;
};

TEST_F(LedThreadsTest, SlotsThatCallEachOthersLedsAreNotLockedOut)
{
    Led one;
    Led other;
    Meeting inside(2);
    QObject::connect(
        &one, &Led::colorChanged, &one,
        [&] {
            inside.come();
            other.flash();
        },
        Qt::DirectConnection);
    QObject::connect(
        &other, &Led::colorChanged, &other,
        [&] {
            inside.come();
            one.flash();
        },
        Qt::DirectConnection);
    runInThreads({[&] { one.setColor(LedColor::Green); }, [&] { other.setColor(LedColor::Blue); }});
    EXPECT_TRUE(one.isActive());
    EXPECT_TRUE(other.isActive());
}

TEST_F(LedThreadsTest, ACircleOfThreeIsNotLockedOutEither)
{
    std::array<Led, 3> leds;
    Meeting inside(3);
    std::vector<std::function<void()>> threads;
    for (std::size_t i = 0; i < leds.size(); ++i) {
        QObject::connect(
            &leds[i], &Led::colorChanged, &leds[i],
            [&inside, &next = leds[(i + 1) % leds.size()]] {
                inside.come();
                next.flash();
            },
            Qt::DirectConnection);
        threads.emplace_back([&led = leds[i]] { led.setColor(LedColor::White); });
    }
    runInThreads(threads);
    for (const Led& led : leds)
        EXPECT_TRUE(led.isActive());
}

TEST_F(LedThreadsTest, SlotMayWaitForAThreadThatUsesAnotherLed)
{
    Led one;
    Led other;
    Meeting inside(2);
    Meeting done(2);
    QObject::connect(
        &one, &Led::colorChanged, &one,
        [&] {
            inside.come();
            done.come();
        },
        Qt::DirectConnection);
    runInThreads({[&] { one.setColor(LedColor::Green); },
                  [&] {
                      inside.come();
                      other.setColor(LedColor::Blue);
                      done.come();
                  }});
    EXPECT_EQ(other.color(), LedColor::Blue);
}

TEST_F(LedThreadsTest, OtherThreadWaitsUntilTheSlotHasReturned)
{
    Led led;
    Meeting inside(2);
    std::atomic<bool> hasReturned{false};
    bool hadReturned = false;
    QObject::connect(
        &led, &Led::colorChanged, &led,
        [&] {
            inside.come();
            std::this_thread::yield();
            hasReturned = true;
        },
        Qt::DirectConnection);
    runInThreads({[&] { led.setColor(LedColor::Green); },
                  [&] {
                      inside.come();
                      led.flash();
                      hadReturned = hasReturned;
                  }});
    EXPECT_TRUE(hadReturned);
}

TEST_F(LedThreadsTest, StormOfCallsAcrossTwoLedsEnds)
{
    Led one;
    Led other;
    const auto use = [](Led& led, int turn) {
        switch (turn % 5) {
        case 0:
            led.flash(turn % 3);
            break;
        case 1:
            led.setColor(turn % 2 == 0 ? LedColor::Green : LedColor::Blue);
            break;
        case 2:
            led.cancel();
            break;
        case 3:
            led.resetColor();
            break;
        default:
            led.flash();
        }
    };
    for (const auto& [from, to] : {std::pair(&one, &other), std::pair(&other, &one)})
        QObject::connect(
            from, &Led::colorChanged, from,
            [target = to] { EXPECT_GE(target->remainingFlashCount(), -1); }, Qt::DirectConnection);
    const auto storm = [&](Led& first, Led& second) {
        for (int turn = 0; turn < 1000; ++turn) {
            use(first, turn);
            use(second, turn / 2);
        }
    };
    runInThreads(
        {[&] { storm(one, other); }, [&] { storm(other, one); }, [&] { storm(one, other); }});
    one.cancel();
    other.cancel();
    EXPECT_FALSE(one.isActive());
    EXPECT_FALSE(other.isActive());
}

TEST_F(LedThreadsTest, CountsInTheThreadThatItWasMovedTo)
{
    QThread thread;
    auto led = std::make_unique<Led>();
    led->moveToThread(&thread);
    thread.start();
    std::atomic<QThread*> counted{nullptr};
    QObject::connect(
        led.get(), &Led::remainingFlashCountChanged, led.get(),
        [&counted] { counted = QThread::currentThread(); }, Qt::DirectConnection);
    led->flash(2);
    // Kept beyond the thread's end: how threads share a map's memory is Qt's business.
    const QVariantMap status = tamotest::LedService::status("red");
    service.receive(status);
    EXPECT_TRUE(QTest::qWaitFor([&counted] { return counted != nullptr; }));
    EXPECT_EQ(counted, &thread);
    EXPECT_EQ(led->remainingFlashCount(), 1);
    thread.quit();
    thread.wait();
    led.reset();
}

TEST_F(LedThreadsTest, IdsOfManyThreadsAreDifferent)
{
    constexpr int each = 50;
    const auto make = [] {
        for (int i = 0; i < each; ++i)
            Led().flash();
    };
    runInThreads({make, make, make});
    QCoreApplication::sendPostedEvents();
    QStringList ids;
    for (const QVariantMap& map : service.takeSent()) {
        if (map.value("msg").toString() == "requestLED")
            ids.append(tamotest::idIn(map));
    }
    EXPECT_EQ(ids.size(), 3 * each);
    EXPECT_EQ(ids.removeDuplicates(), 0);
}

} // namespace
