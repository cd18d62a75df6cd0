// SPDX-License-Identifier: Apache-2.0
// How messages become values. How they arrive is tried over a real /pps, in tests/system/library.
#include "device/BatteryInfoPrivate.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

#include <limits>
#include <memory>

using tamo::device::BatteryInfo;
using tamo::device::BatteryInfoPrivate;

namespace {

class BatteryInfoPrivateTest : public testing::Test
{
protected:
    void battery(const QVariant& charge)
    {
        values.onPpsBattery({{"@battery", QVariantMap{{"StateOfCharge", charge}}}});
    }

    void charger(const QVariant& state)
    {
        values.onPpsCharger({{"@charger", QVariantMap{{"ChargerInfo", state}}}});
    }

    BatteryInfo info;
    BatteryInfoPrivate values{&info};
    QSignalSpy changes{&info, &BatteryInfo::levelChanged};
};

TEST_F(BatteryInfoPrivateTest, LevelIsTheStateOfChargeAsTextOrNumber)
{
    battery("57");
    EXPECT_EQ(values.level, 57);
    battery(58.0);
    EXPECT_EQ(values.level, 58);
    battery("0");
    EXPECT_EQ(values.level, 0);
}

TEST_F(BatteryInfoPrivateTest, LevelIsUnknownWhereTheStateOfChargeIsNoInteger)
{
    const double infinity = std::numeric_limits<double>::infinity();
    const QVariantList noIntegers = {QVariant(),
                                     "",
                                     "full",
                                     "57%",
                                     "57.5",
                                     "99999999999",
                                     1e10,
                                     -1e10,
                                     2147483647.5,
                                     -2147483649.0,
                                     infinity,
                                     -infinity,
                                     std::numeric_limits<double>::quiet_NaN(),
                                     true,
                                     QVariantMap(),
                                     QVariantList{57.0}};
    for (const QVariant& value : noIntegers) {
        battery(57.0);
        battery(value);
        EXPECT_EQ(values.level, -1) << value.typeName();
    }
}

TEST_F(BatteryInfoPrivateTest, LevelReachesTheEndsOfItsRange)
{
    battery(2147483647.0);
    EXPECT_EQ(values.level, std::numeric_limits<int>::max());
    battery(-2147483648.0);
    EXPECT_EQ(values.level, std::numeric_limits<int>::min());
}

TEST_F(BatteryInfoPrivateTest, LevelIsUnknownWithoutTheAttributeOrTheObject)
{
    for (const QVariantMap& pps :
         {QVariantMap(), QVariantMap{{"@battery", QVariant()}},
          QVariantMap{{"@battery", QVariantMap()}}, QVariantMap{{"@battery", "57"}},
          QVariantMap{{"StateOfCharge", "57"}},
          QVariantMap{{"@charger", QVariantMap{{"StateOfCharge", "57"}}}}}) {
        battery("57");
        values.onPpsBattery(pps);
        EXPECT_EQ(values.level, -1);
    }
}

TEST_F(BatteryInfoPrivateTest, ChargingStateFollowsTheCharger)
{
    battery("57");
    charger("NONE");
    EXPECT_EQ(values.chargingState, BatteryInfo::Discharging);
    charger("CHARGE");
    EXPECT_EQ(values.chargingState, BatteryInfo::Charging);
    charger("PLUGGED");
    EXPECT_EQ(values.chargingState, BatteryInfo::NotCharging);
}

TEST_F(BatteryInfoPrivateTest, PluggedIsFullAtExactlyHundredPercent)
{
    for (const int level : {-1, 0, 99, 101}) {
        battery(double(level));
        charger("PLUGGED");
        EXPECT_EQ(values.chargingState, BatteryInfo::NotCharging) << level;
    }
    battery(100.0);
    charger("PLUGGED");
    EXPECT_EQ(values.chargingState, BatteryInfo::Full);
}

TEST_F(BatteryInfoPrivateTest, AnyOtherChargerIsUnknown)
{
    const QVariantList others = {"plugged", "Plugged",  "PLUGGED ", "",
                                 "none",    QVariant(), 1.0,        QVariantMap()};
    for (const QVariant& other : others) {
        charger("CHARGE");
        charger(other);
        EXPECT_EQ(values.chargingState, BatteryInfo::UnknownChargingState);
    }
    for (const QVariantMap& pps : {QVariantMap(), QVariantMap{{"@charger", QVariantMap()}},
                                   QVariantMap{{"ChargerInfo", "CHARGE"}}}) {
        charger("CHARGE");
        values.onPpsCharger(pps);
        EXPECT_EQ(values.chargingState, BatteryInfo::UnknownChargingState);
    }
}

TEST_F(BatteryInfoPrivateTest, BatteryLeavesTheChargingStateAsItWas)
{
    battery(99.0);
    charger("PLUGGED");
    changes.clear();
    battery(100.0);
    ASSERT_EQ(changes.count(), 1);
    EXPECT_EQ(changes.at(0).at(0).toInt(), 100);
    EXPECT_EQ(changes.at(0).at(1).value<BatteryInfo::ChargingState>(), BatteryInfo::NotCharging);
    charger("PLUGGED");
    EXPECT_EQ(values.chargingState, BatteryInfo::Full);
}

TEST_F(BatteryInfoPrivateTest, ChangeCanBeQueued)
{
    BatteryInfo receiver;
    ASSERT_TRUE(QObject::connect(
        &info, SIGNAL(levelChanged(int, tamo::device::BatteryInfo::ChargingState)), &receiver,
        SIGNAL(levelChanged(int, tamo::device::BatteryInfo::ChargingState)), Qt::QueuedConnection));
    QSignalSpy queued(&receiver, &BatteryInfo::levelChanged);
    charger("CHARGE");
    ASSERT_TRUE(queued.wait());
    EXPECT_EQ(queued.at(0).at(1).value<BatteryInfo::ChargingState>(), BatteryInfo::Charging);
}

TEST_F(BatteryInfoPrivateTest, EveryUpdateIsAnnounced)
{
    battery(57.0);
    battery(57.0);
    charger("CHARGE");
    charger("CHARGE");
    battery(QVariant());
    battery(QVariant());
    EXPECT_EQ(changes.count(), 6);
}

} // namespace
