// SPDX-License-Identifier: Apache-2.0
#include <tamo/device/BatteryInfo.h>

#include "PrivatePps.h"
#include "ProcessorTime.h"
#include "WorkerThread.h"

#include <QPointer>
#include <QSignalSpy>
#include <QTest>
#include <QThread>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <future>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

using namespace std::chrono_literals;
using tamo::device::BatteryInfo;
using tamotest::publish;

namespace {

constexpr char batteryPath[] = "services/power/battery";
constexpr char chargerPath[] = "services/power/charger";

/** Makes both objects, unpublished, as the power service does before anything else. */
void createObjects()
{
    mkdir("/pps/services", 0777);
    mkdir("/pps/services/power", 0777);
    for (const char* object : {"/pps/services/power/battery", "/pps/services/power/charger"}) {
        const int descriptor = open(object, O_WRONLY | O_CREAT | O_CLOEXEC, 0666);
        EXPECT_NE(descriptor, -1);
        close(descriptor);
    }
}

/** A BatteryInfo and what it announces. */
class Watched
{
public:
    bool waitFor(int level, BatteryInfo::ChargingState state)
    {
        return QTest::qWaitFor(
            [&] { return info.level() == level && info.chargingState() == state; });
    }

    BatteryInfo info;
    QSignalSpy changes{&info, &BatteryInfo::levelChanged};
};

class BatteryInfoSystemTest : public testing::Test
{
protected:
    BatteryInfoSystemTest() { createObjects(); }

    tamotest::PpsFilesystem filesystem;
};

TEST(BatteryInfoWithoutPps, StaysUnknownAndQuiet)
{
    Watched battery;
    EXPECT_EQ(battery.info.level(), -1);
    EXPECT_EQ(battery.info.chargingState(), BatteryInfo::UnknownChargingState);
    EXPECT_LT(tamotest::processorTimeOfEventLoop(100ms), 20ms);
    EXPECT_EQ(battery.changes.count(), 0);
}

TEST_F(BatteryInfoSystemTest, HoldsWhatWasPublishedBeforeWithoutAnnouncingIt)
{
    publish(batteryPath, "StateOfCharge::57\n");
    publish(chargerPath, "ChargerInfo::CHARGE\n");
    Watched battery;
    EXPECT_EQ(battery.info.level(), 57);
    EXPECT_EQ(battery.info.chargingState(), BatteryInfo::Charging);
    QSignalSpy first(&battery.info, &BatteryInfo::levelChanged);
    publish(batteryPath, "StateOfCharge:n:58\n");
    ASSERT_TRUE(battery.waitFor(58, BatteryInfo::Charging));
    EXPECT_EQ(battery.changes.count(), 1);
}

TEST_F(BatteryInfoSystemTest, DerivesFullFromTheLevelReadAtConstruction)
{
    publish(batteryPath, "StateOfCharge:n:100\n");
    publish(chargerPath, "ChargerInfo::PLUGGED\n");
    EXPECT_EQ(BatteryInfo().chargingState(), BatteryInfo::Full);
    publish(batteryPath, "StateOfCharge:n:99\n");
    EXPECT_EQ(BatteryInfo().chargingState(), BatteryInfo::NotCharging);
}

TEST_F(BatteryInfoSystemTest, ValuesAreIndependentAtConstruction)
{
    publish(chargerPath, "ChargerInfo::NONE\n");
    Watched battery;
    EXPECT_EQ(battery.info.level(), -1);
    EXPECT_EQ(battery.info.chargingState(), BatteryInfo::Discharging);
    publish(batteryPath, "StateOfCharge:n:57\n");
    EXPECT_TRUE(battery.waitFor(57, BatteryInfo::Discharging));
}

TEST_F(BatteryInfoSystemTest, FirstPublicationsArriveLater)
{
    Watched battery;
    EXPECT_EQ(battery.info.level(), -1);
    EXPECT_EQ(battery.info.chargingState(), BatteryInfo::UnknownChargingState);
    publish(chargerPath, "ChargerInfo::CHARGE\n");
    ASSERT_TRUE(battery.waitFor(-1, BatteryInfo::Charging));
    publish(batteryPath, "StateOfCharge:n:57\n");
    ASSERT_TRUE(battery.waitFor(57, BatteryInfo::Charging));
    EXPECT_EQ(battery.changes.count(), 2);
}

TEST_F(BatteryInfoSystemTest, EachPublicationIsAnnouncedAlsoWithTheSameValues)
{
    publish(batteryPath, "StateOfCharge:n:57\n");
    Watched battery;
    for (int i = 1; i <= 3; ++i) {
        publish(batteryPath, "StateOfCharge:n:57\n");
        ASSERT_TRUE(QTest::qWaitFor([&] { return battery.changes.count() == i; }));
    }
    EXPECT_EQ(battery.info.level(), 57);
}

TEST_F(BatteryInfoSystemTest, FullIsNotDerivedFromTheBatteryAlone)
{
    publish(batteryPath, "StateOfCharge:n:99\n");
    publish(chargerPath, "ChargerInfo::PLUGGED\n");
    Watched battery;
    publish(batteryPath, "StateOfCharge:n:100\n");
    ASSERT_TRUE(battery.changes.wait());
    EXPECT_EQ(battery.changes.at(0).at(0).toInt(), 100);
    EXPECT_EQ(battery.changes.at(0).at(1).value<BatteryInfo::ChargingState>(),
              BatteryInfo::NotCharging);
    publish(chargerPath, "ChargerInfo::PLUGGED\n");
    EXPECT_TRUE(battery.waitFor(100, BatteryInfo::Full));
}

TEST_F(BatteryInfoSystemTest, LevelIsUnknownWhereTheAttributeIsDeletedOrNoInteger)
{
    publish(batteryPath, "StateOfCharge:n:57\n");
    Watched battery;
    publish(batteryPath, "-StateOfCharge\n");
    ASSERT_TRUE(battery.waitFor(-1, BatteryInfo::UnknownChargingState));
    publish(batteryPath, "StateOfCharge:n:58\n");
    ASSERT_TRUE(battery.waitFor(58, BatteryInfo::UnknownChargingState));
    publish(batteryPath, "StateOfCharge::much\n");
    ASSERT_TRUE(battery.waitFor(-1, BatteryInfo::UnknownChargingState));
    EXPECT_EQ(battery.changes.count(), 3);
}

TEST_F(BatteryInfoSystemTest, RemovedObjectsAreUnknown)
{
    publish(batteryPath, "StateOfCharge:n:57\n");
    publish(chargerPath, "ChargerInfo::NONE\n");
    Watched battery;
    ASSERT_EQ(unlink("/pps/services/power/battery"), 0);
    ASSERT_TRUE(battery.waitFor(-1, BatteryInfo::Discharging));
    ASSERT_EQ(unlink("/pps/services/power/charger"), 0);
    ASSERT_TRUE(battery.waitFor(-1, BatteryInfo::UnknownChargingState));
    EXPECT_LT(tamotest::processorTimeOfEventLoop(100ms), 20ms);
}

TEST_F(BatteryInfoSystemTest, ReceiverMayDeleteIt)
{
    publish(batteryPath, "StateOfCharge:n:57\n");
    const QPointer<BatteryInfo> battery = new BatteryInfo;
    QObject::connect(battery, &BatteryInfo::levelChanged, [&battery] { delete battery; });
    publish(batteryPath, "StateOfCharge:n:58\n");
    publish(chargerPath, "ChargerInfo::NONE\n");
    EXPECT_TRUE(QTest::qWaitFor([&battery] { return battery.isNull(); }));
}

TEST_F(BatteryInfoSystemTest, WorksInAThreadOfItsOwnAndReachesOthersQueued)
{
    publish(batteryPath, "StateOfCharge:n:57\n");
    QThread thread;
    QObject inThread;
    inThread.moveToThread(&thread);
    thread.start();
    std::unique_ptr<BatteryInfo> battery;
    int level = 0;
    QMetaObject::invokeMethod(
        &inThread,
        [&] {
            battery = std::make_unique<BatteryInfo>();
            QObject::connect(battery.get(), &BatteryInfo::levelChanged, qApp,
                             [&level](int newLevel) { level = newLevel; });
        },
        Qt::BlockingQueuedConnection);
    publish(batteryPath, "StateOfCharge:n:58\n");
    EXPECT_TRUE(QTest::qWaitFor([&level] { return level == 58; }));
    QMetaObject::invokeMethod(
        &inThread, [&battery] { battery.reset(); }, Qt::BlockingQueuedConnection);
    thread.quit();
    thread.wait();
}

TEST_F(BatteryInfoSystemTest, MayBeMovedToAnotherThreadAndDeletedThere)
{
    publish(batteryPath, "StateOfCharge:n:57\n");
    auto battery = std::make_unique<BatteryInfo>();
    tamotest::WorkerThread worker;
    battery->moveToThread(&worker);
    std::promise<int> level;
    std::promise<QThread*> thread;
    QObject::connect(battery.get(), &BatteryInfo::levelChanged, battery.get(), [&](int newLevel) {
        level.set_value(newLevel);
        thread.set_value(QThread::currentThread());
    });
    publish(batteryPath, "StateOfCharge:n:58\n");
    EXPECT_EQ(tamotest::valueOf(level), 58);
    EXPECT_EQ(tamotest::valueOf(thread), &worker);
    worker.run([&battery] { battery.reset(); });
}

TEST_F(BatteryInfoSystemTest, KeepsItsValuesAndComesToRestWhenTheFilesystemDies)
{
    publish(batteryPath, "StateOfCharge:n:57\n");
    publish(chargerPath, "ChargerInfo::NONE\n");
    Watched battery;
    filesystem.kill();
    EXPECT_LT(tamotest::processorTimeOfEventLoop(500ms), 50ms);
    EXPECT_EQ(battery.info.level(), 57);
    EXPECT_EQ(battery.info.chargingState(), BatteryInfo::Discharging);
    EXPECT_EQ(battery.changes.count(), 0);
}

} // namespace
