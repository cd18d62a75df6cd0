// SPDX-License-Identifier: Apache-2.0
#include <tamo/platform/osVersion.h>

#include "LogCapture.h"
#include "SubstituteCore.h"
#include "SubstituteDeviceInfo.h"

#include <tamomock/ZelApi.h>

#include <gmock/gmock.h>

using namespace tamotest;
using namespace testing;
using tamo::platform::osVersion;

namespace {

class OsVersionTest : public Test
{
protected:
    OsVersionTest()
    {
        auto core = std::make_unique<SubstituteCore>(journal);
        auto deviceInfo = std::make_unique<SubstituteDeviceInfo>(journal);
        m_core = core.get();
        m_deviceInfo = deviceInfo.get();
        tamomock::ZelApi::Domains domains;
        domains.core = std::move(core);
        domains.deviceInfo = std::move(deviceInfo);
        m_api = std::make_unique<tamomock::ZelApi>(std::move(domains));
        tamomock::ZelApi::setInstance(m_api.get());
        log.clear();
    }

    ~OsVersionTest() override { tamomock::ZelApi::clearInstance(m_api.get()); }

    void TearDown() override
    {
        EXPECT_EQ(m_deviceInfo->recordCount(), 0);
        EXPECT_EQ(m_core->initializations(std::this_thread::get_id()), 0);
        EXPECT_EQ(m_core->surplusShutdowns(), 0);
        EXPECT_THAT(m_core->leftovers(), IsEmpty());
        EXPECT_THAT(journal.unmetFailures(), IsEmpty());
        EXPECT_THAT(log.lines(), IsEmpty());
    }

    std::vector<std::string> operations() const
    {
        std::vector<std::string> found;
        for (const Call& call : journal.calls())
            found.push_back(call.operation);
        return found;
    }

    SubstituteDeviceInfo& deviceInfo() { return *m_deviceInfo; }

    CallJournal journal;
    LogCapture& log = LogCapture::instance();

private:
    SubstituteCore* m_core = nullptr; // m_api's, as what follows
    SubstituteDeviceInfo* m_deviceInfo = nullptr;
    std::unique_ptr<tamomock::ZelApi> m_api;
};

TEST_F(OsVersionTest, IsTheDevicesText)
{
    EXPECT_EQ(osVersion(), QStringLiteral("1.2.0.34"));
    EXPECT_THAT(operations(), ElementsAre("core.initialize", "deviceInfo.getData",
                                          "deviceInfo.freeData", "core.shutdown"));
}

TEST_F(OsVersionTest, IsAskedForAnewByEachCall)
{
    osVersion();
    deviceInfo().osVersion = "2.0.0.1";
    EXPECT_EQ(osVersion(), QStringLiteral("2.0.0.1"));
}

TEST_F(OsVersionTest, IsZerosWhereTheEventLibraryFails)
{
    journal.fail("core.initialize");
    EXPECT_EQ(osVersion(), QStringLiteral("0.0.0.0"));
    EXPECT_THAT(operations(), ElementsAre("core.initialize"));
}

TEST_F(OsVersionTest, IsZerosWhereTheDeviceCannotBeAsked)
{
    journal.fail("deviceInfo.getData");
    EXPECT_EQ(osVersion(), QStringLiteral("0.0.0.0"));
    EXPECT_THAT(operations(),
                ElementsAre("core.initialize", "deviceInfo.getData", "core.shutdown"));
}

TEST_F(OsVersionTest, IsThereAlsoWhereTheShutdownFails)
{
    journal.fail("core.shutdown");
    EXPECT_EQ(osVersion(), QStringLiteral("1.2.0.34"));
    // What the failed one left undone.
    tamomock::ZelApi::instance()->core()->shutdown();
}

TEST_F(OsVersionTest, IsEmptyWhereTheDeviceDoesNotSay)
{
    for (const std::optional<std::string>& text :
         {std::optional<std::string>(""), std::optional<std::string>()}) {
        deviceInfo().osVersion = text;
        EXPECT_TRUE(osVersion().isEmpty());
    }
}

TEST_F(OsVersionTest, IsReadAsUtf8)
{
    deviceInfo().osVersion = "1.0 \xc3\xbc";
    EXPECT_EQ(osVersion(), QString::fromUtf8("1.0 \xc3\xbc"));
}

TEST_F(OsVersionTest, LeavesTheCallersOwnInitialisationAlone)
{
    tamomock::ZelCore& core = *tamomock::ZelApi::instance()->core();
    ASSERT_EQ(core.initialize(), 0);
    osVersion();
    EXPECT_EQ(static_cast<SubstituteCore&>(core).initializations(std::this_thread::get_id()), 1);
    ASSERT_EQ(core.shutdown(), 0);
}

TEST_F(OsVersionTest, MayBeAskedForByManyThreadsAtOnce)
{
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([] {
            for (int n = 0; n < 100; ++n)
                EXPECT_EQ(osVersion(), QStringLiteral("1.2.0.34"));
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(journal.count("core.initialize"), 800);
    EXPECT_EQ(journal.count("core.shutdown"), 800);
    EXPECT_EQ(journal.count("deviceInfo.freeData"), 800);
}

} // namespace
