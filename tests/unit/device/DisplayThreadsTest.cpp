// SPDX-License-Identifier: Apache-2.0
// Displays that come and go while other threads look at them, and managers that do so meanwhile.
#include "DisplayManagerTest.h"

#include "Storm.h"

#include <QSignalSpy>

#include <gmock/gmock.h>

#include <atomic>

using namespace tamotest;
using namespace testing;
using tamo::device::Display;
using tamo::device::DisplayManager;

namespace {

constexpr int changes = 10'000;

class DisplayThreadsTest : public DisplayManagerTest
{
protected:
    DisplayThreadsTest()
    {
        log.setKeeping(false);
        journal.setKeeping(false);
    }
    ~DisplayThreadsTest() override { log.setKeeping(true); }
};

TEST_F(DisplayThreadsTest, DisplayIsReadWholeWhileItChangesTenThousandTimes)
{
    // Each state of the display is one of two, and no mixture of them.
    Displays small = phoneAndTelevision();
    small[1] = {0, 1000, 1000, 2, "a"};
    small[1].physicalWidth = 1;
    small[1].physicalHeight = 1;
    Displays large = small;
    large[1] = {0, 3000, 3000, 2, "b"};
    large[1].physicalWidth = 3;
    large[1].physicalHeight = 3;
    small[1].attached = 0;
    make(small);
    std::atomic<int> attached{0};
    std::atomic<int> detached{0};
    const auto count = [](std::atomic<int>& counter) { return [&counter](int) { ++counter; }; };
    QObject::connect(&manager(), &DisplayManager::displayAttached, count(attached));
    QObject::connect(&manager(), &DisplayManager::displayDetached, count(detached));
    awaitEvents();
    const Display& television = display(2);
    const auto look = [&] {
        const QSize pixels = television.pixelSize();
        EXPECT_EQ(pixels.width(), pixels.height());
        const QSizeF extent = television.physicalSize();
        EXPECT_EQ(extent.width(), extent.height());
        EXPECT_EQ(television.resolution(), QSizeF(1'000'000, 1'000'000));
        EXPECT_THAT(television.displayName().toStdString(), AnyOf("a", "b"));
        EXPECT_EQ(television.displayId(), 2);
        EXPECT_EQ(television.aspectType(), Display::Square);
        EXPECT_EQ(&display(2), &television);
        EXPECT_EQ(manager().primaryDisplayId(), 1);
        EXPECT_EQ(manager().secondaryDisplayIds().size(), 1);
    };
    {
        const Storm one(look);
        const Storm other(look);
        for (int i = 0; i < changes; ++i) {
            const bool isAttached = i % 2 == 0;
            screen.setDisplays(isAttached ? large : small);
            deliver({SCREEN_EVENT_DISPLAY, 1, isAttached});
        }
    }
    EXPECT_EQ(attached, changes / 2);
    EXPECT_EQ(detached, changes / 2);
    EXPECT_FALSE(television.isAttached());
}

TEST_F(DisplayThreadsTest, ManagersComeAndGoWhileDisplaysDo)
{
    Displays displays = phoneAndTelevision();
    screen.setDisplays(displays);
    std::atomic<int> heard{0};
    std::atomic<int> turn{0};
    const Storm storm([&] {
        const bool isAttached = ++turn % 2 == 0;
        screen.setAttached(1, isAttached);
        platform.screenEvents().deliverEvent({SCREEN_EVENT_DISPLAY, 1, isAttached});
    });
    // Every other one goes in the middle of its first events, or before.
    for (int i = 0; i < 200; ++i) {
        DisplayManager manager;
        const int heardBefore = heard;
        QObject::connect(&manager, &DisplayManager::displayAttached, [&](int) { ++heard; });
        QObject::connect(manager.getDisplay(2), &Display::attachedChanged, [&](bool) { ++heard; });
        EXPECT_EQ(manager.getDisplay(2)->displayId(), 2);
        const bool isToHear = i % 2 == 0;
        EXPECT_TRUE(!isToHear || eventually([&] { return heard > heardBefore; }));
    }
}

TEST_F(DisplayThreadsTest, ManagersOfSeveralThreads)
{
    screen.setDisplays(phoneAndTelevision());
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([] {
            for (int j = 0; j < 50; ++j) {
                DisplayManager manager;
                const QSignalSpy spy(&manager, &DisplayManager::displayAttached);
                EXPECT_EQ(manager.getDisplay(1)->displayId(), 1);
            }
        });
    for (std::thread& thread : threads)
        thread.join();
}

TEST_F(DisplayThreadsTest, UnknownIdsAreAskedForWhileEventsCome)
{
    make(phoneAndTelevision());
    QObject::connect(&manager(), &DisplayManager::displayAttached, [](int) {});
    awaitEvents();
    std::atomic<int> id{100};
    const Storm storm([&] {
        try {
            manager().getDisplay(++id);
            ADD_FAILURE() << "there is a display " << id;
        } catch (const std::exception&) {
        }
    });
    for (int i = 0; i < 500; ++i)
        setAttached(1, i % 2 == 0);
    EXPECT_FALSE(display(2).isAttached());
}

} // namespace
