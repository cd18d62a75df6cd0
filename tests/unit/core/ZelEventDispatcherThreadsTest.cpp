// SPDX-License-Identifier: Apache-2.0
// Many threads register, remove and deliver at the same time.
#include "core/ZelEventDispatcher.h"

#include "CoreTest.h"
#include "Storm.h"

#include <tamo/Exception.h>

#include <gmock/gmock.h>

namespace {

using tamotest::eventually;
using tamotest::RecordingHandler;
using tamotest::Storm;
using tamotest::SubstituteProvider;

const char started[] = "ZelEventDispatcher::processZelEvents() - thread started";
const char stopped[] = "ZelEventDispatcher::processZelEvents() - thread stopped";

class ZelEventDispatcherThreadsTest : public tamotest::CoreTest
{
protected:
    struct Service
    {
        Service(tamotest::CallJournal& journal, tamotest::SubstituteCore& core, int number)
            : provider(journal, core, "service" + std::to_string(number), 100 + number)
            , handler(core)
        {
        }
        SubstituteProvider provider;
        RecordingHandler handler;
    };

    std::vector<std::unique_ptr<Service>> makeServices(int count)
    {
        std::vector<std::unique_ptr<Service>> services;
        for (int i = 0; i < count; ++i)
            services.push_back(std::make_unique<Service>(journal, core, i));
        return services;
    }
};

class RegisteredAtOnce : public ZelEventDispatcherThreadsTest,
                         public testing::WithParamInterface<int>
{
};

TEST_P(RegisteredAtOnce, AllSucceedWithOneThread)
{
    const auto services = makeServices(GetParam());
    std::atomic<int> failures{0};
    tamotest::atOnce(GetParam(), [&](int i) {
        Service& service = *services[static_cast<std::size_t>(i)];
        try {
            add(service.provider, service.handler);
        } catch (...) {
            ++failures;
        }
    });
    EXPECT_EQ(failures, 0);
    EXPECT_EQ(log.count(started), 1);
    for (const auto& service : services)
        EXPECT_TRUE(deliver(service->provider, 1));
    for (const auto& service : services)
        EXPECT_TRUE(service->handler.waitForDispatches(1));
    tamotest::atOnce(GetParam(), [&](int i) {
        Service& service = *services[static_cast<std::size_t>(i)];
        remove(service.provider, service.handler);
    });
    EXPECT_EQ(log.count(stopped), 1);
}

INSTANTIATE_TEST_SUITE_P(Threads, RegisteredAtOnce, testing::Values(2, 16));

TEST_F(ZelEventDispatcherThreadsTest, NoCallOfAHandlerIsUnderWayOrBeginsAfterItsRemoval)
{
    journal.setKeeping(false);
    log.setKeeping(false);
    const Storm storm([&] { first.deliver(1); });
    add(second, otherHandler); // so that the thread goes on without the first
    for (int i = 0; i < 200; ++i) {
        std::atomic<bool> isRemoved{false};
        std::atomic<int> late{0};
        std::atomic<int> calls{0};
        RecordingHandler target(core);
        target.whenCalled = [&] {
            ++calls;
            std::this_thread::yield();
            late += isRemoved;
        };
        add(first, target);
        ASSERT_TRUE(eventually([&] { return calls != 0; }));
        remove(first, target);
        isRemoved = true;
        EXPECT_EQ(late, 0);
    }
    remove(second, otherHandler);
}

TEST_F(ZelEventDispatcherThreadsTest, TheLastRemovalEndsTheThreadWhileEventsPourIn)
{
    journal.setKeeping(false);
    log.setKeeping(false);
    const Storm storm([&] { first.deliver(1); });
    for (int i = 0; i < 200; ++i) {
        std::atomic<int> calls{0};
        RecordingHandler target(core);
        target.whenCalled = [&] { ++calls; };
        add(first, target);
        ASSERT_TRUE(eventually([&] { return calls != 0; }));
        remove(first, target);
    }
}

TEST_F(ZelEventDispatcherThreadsTest, ThreadsThatComeAndGoWhileEventsPourIn)
{
    journal.setKeeping(false);
    log.setKeeping(false);
    const auto services = makeServices(4);
    const Storm storm([&] {
        for (const auto& service : services)
            service->provider.deliver(1);
    });
    tamotest::atOnce(4, [&](int i) {
        Service& service = *services[static_cast<std::size_t>(i)];
        for (int round = 0; round < 100; ++round) {
            const std::size_t before = service.handler.dispatches().size();
            add(service.provider, service.handler);
            EXPECT_TRUE(service.handler.waitForDispatches(before + 1));
            remove(service.provider, service.handler);
        }
    });
}

} // namespace
