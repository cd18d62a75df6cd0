// SPDX-License-Identifier: Apache-2.0
#include "core/StandardZelEventHandler.h"

#include "CoreTest.h"
#include "Storm.h"

#include <tamo/Exception.h>

#include <gmock/gmock.h>

#include <malloc.h>

namespace {

using tamotest::eventually;
using tamotest::Storm;
using testing::ElementsAre;

const char started[] = "ZelEventDispatcher::processZelEvents() - thread started";
const char stopped[] = "ZelEventDispatcher::processZelEvents() - thread stopped";

class CountingHandler final : public tamo::StandardZelEventHandler
{
public:
    explicit CountingHandler(tamomock::ZelEventProvider& provider)
        : StandardZelEventHandler(&provider)
    {
    }
    ~CountingHandler() { endSubscription(); }

    void handleZelEvent(int code, zel_event_t*) override
    {
        lastCode = code;
        lastThread = std::this_thread::get_id();
        ++calls;
    }

    std::atomic<int> calls{0};
    std::atomic<int> lastCode{0};
    std::atomic<std::thread::id> lastThread{};
};

class StandardZelEventHandlerTest : public tamotest::PlatformTest
{
protected:
    bool deliver(int code)
    {
        return eventually([&] { return service.deliver(code); });
    }

    /** Whether an event reaches the handler. */
    bool isHeard()
    {
        const int before = handler->calls;
        return deliver(1) && eventually([&] { return handler->calls > before; });
    }

    int shutdownsHere() const
    {
        int count = 0;
        for (const tamotest::Call& call : journal.calls("core.shutdown"))
            count += call.thread == std::this_thread::get_id();
        return count;
    }

    tamotest::SubstituteProvider service{journal, core, "service", 51};
    std::unique_ptr<CountingHandler> handler = std::make_unique<CountingHandler>(service);
};

TEST_F(StandardZelEventHandlerTest, AnEventComesWithItsCodeOnTheDispatchThread)
{
    handler->subscribe("2signal()");
    ASSERT_TRUE(deliver(-42));
    ASSERT_TRUE(eventually([&] { return handler->calls == 1; }));
    EXPECT_EQ(handler->lastCode, -42);
    EXPECT_EQ(handler->lastThread.load(), journal.calls("core.getEvent").at(0).thread);
    handler->unsubscribe();
}

TEST_F(StandardZelEventHandlerTest, TheFirstSubscriptionInitialisesItsThreadAndRegisters)
{
    handler->subscribe(nullptr);
    const std::vector<tamotest::Call> initialize = journal.calls("core.initialize");
    ASSERT_EQ(initialize.size(), 2U);
    EXPECT_EQ(initialize[0].thread, std::this_thread::get_id());
    EXPECT_NE(initialize[1].thread, std::this_thread::get_id());
    handler->unsubscribe();
    // The dispatcher's own, in the thread that ends it, and the subscription's.
    EXPECT_EQ(shutdownsHere(), 2);
    EXPECT_THAT(log.lines(), ElementsAre(started, stopped));
}

TEST_F(StandardZelEventHandlerTest, TheLastOfSeveralSubscriptionsDeregisters)
{
    handler->subscribe("a");
    handler->subscribe("b");
    EXPECT_EQ(journal.count("core.initialize"), 2);
    handler->unsubscribe();
    EXPECT_TRUE(isHeard());
    EXPECT_EQ(journal.count("service.stopEvents"), 0);
    handler->unsubscribe();
    EXPECT_EQ(journal.count("service.requestEvents"), 1);
    EXPECT_EQ(journal.count("service.stopEvents"), 1);
    EXPECT_EQ(log.lines().back(), stopped);
}

TEST_F(StandardZelEventHandlerTest, TheFlagsAreThoseOfTheFirstSubscription)
{
    handler->subscribe("a", 7);
    handler->subscribe("b", 8);
    handler->unsubscribe();
    handler->unsubscribe();
    handler->subscribe("c");
    handler->unsubscribe();
    const auto requests = journal.calls("service.requestEvents");
    const auto stops = journal.calls("service.stopEvents");
    ASSERT_EQ(requests.size(), 2U);
    ASSERT_EQ(stops.size(), 2U);
    EXPECT_EQ(requests[0].arguments, "7");
    EXPECT_EQ(stops[0].arguments, "7");
    EXPECT_EQ(requests[1].arguments, "0");
    EXPECT_EQ(stops[1].arguments, "0");
}

TEST_F(StandardZelEventHandlerTest, AnUnsubscriptionTooManyCountsBelowZero)
{
    handler->unsubscribe();
    EXPECT_THAT(journal.calls(), testing::IsEmpty());
    handler->subscribe("up to 0 again");
    EXPECT_THAT(journal.calls(), testing::IsEmpty());
    handler->subscribe("the first");
    EXPECT_TRUE(isHeard());
    handler->unsubscribe();
    EXPECT_EQ(journal.count("service.stopEvents"), 1);
}

TEST_F(StandardZelEventHandlerTest, DestructionBelowZeroDeregistersNothing)
{
    handler->unsubscribe();
    handler.reset();
    EXPECT_THAT(journal.calls(), testing::IsEmpty());
}

TEST_F(StandardZelEventHandlerTest, DestructionWithOpenSubscriptionsDeregistersOnce)
{
    handler->subscribe("a", 3);
    handler->subscribe("b");
    handler->subscribe("c");
    handler.reset();
    EXPECT_EQ(journal.count("service.stopEvents"), 1);
    EXPECT_EQ(journal.calls("service.stopEvents").at(0).arguments, "3");
    EXPECT_EQ(shutdownsHere(), 2);
    EXPECT_THAT(log.lines(), ElementsAre(started, stopped));
}

TEST_F(StandardZelEventHandlerTest, AFailedFirstSubscriptionIsNotCounted)
{
    journal.fail("core.initialize", 2);
    EXPECT_THROW(handler->subscribe("a"), tamo::Exception);
    EXPECT_EQ(core.initializations(std::this_thread::get_id()), 0);
    handler->subscribe("b");
    EXPECT_TRUE(isHeard());
    handler->unsubscribe();
}

TEST_F(StandardZelEventHandlerTest, TheResultOfInitialisingIsNotLookedAt)
{
    journal.fail("core.initialize", 1);
    EXPECT_NO_THROW(handler->subscribe("a"));
    EXPECT_TRUE(isHeard());
    handler->unsubscribe();
}

class FailedUnsubscription : public StandardZelEventHandlerTest,
                             public testing::WithParamInterface<std::pair<const char*, int>>
{
};

TEST_P(FailedUnsubscription, ThrowsAndTheNextSubscriptionWorks)
{
    handler->subscribe("a");
    journal.fail(GetParam().first, GetParam().second);
    EXPECT_THROW(handler->unsubscribe(), tamo::Exception);
    handler->subscribe("b");
    EXPECT_TRUE(isHeard());
    handler->unsubscribe();
    EXPECT_EQ(log.lines().back(), stopped);
}

TEST_P(FailedUnsubscription, DestructionDoesNotThrowAndLeavesNoCallBehind)
{
    handler->subscribe("a");
    journal.fail(GetParam().first, GetParam().second);
    handler.reset();
    EXPECT_FALSE(log.linesWith("ZelEventDispatcher::p").empty());
    EXPECT_EQ(core.initializations(std::this_thread::get_id()), 0);
    // Where the thread could not be ended it waits for the next registration.
    handler = std::make_unique<CountingHandler>(service);
    handler->subscribe("b");
    EXPECT_TRUE(isHeard());
    handler->unsubscribe();
}

INSTANTIATE_TEST_SUITE_P(Each, FailedUnsubscription,
                         testing::Values(std::pair("core.eventCreate", 1),
                                         std::pair("core.channelPushEvent", 1),
                                         std::pair("core.eventCreate", 2),
                                         std::pair("core.channelPushEvent", 2)));

TEST_F(StandardZelEventHandlerTest, SubscriptionsFromManyThreadsAreCounted)
{
    tamotest::atOnce(16, [&](int) { handler->subscribe("a"); });
    EXPECT_TRUE(isHeard());
    EXPECT_EQ(journal.count("service.requestEvents"), 1);
    tamotest::atOnce(15, [&](int) { handler->unsubscribe(); });
    EXPECT_TRUE(isHeard());
    handler->unsubscribe();
    EXPECT_EQ(log.lines().back(), stopped);
}

TEST_F(StandardZelEventHandlerTest, AHandlerIsDestroyedWhileEventsPourIn)
{
    journal.setKeeping(false);
    log.setKeeping(false);
    const Storm storm([&] { service.deliver(1); });
    for (int i = 0; i < 300; ++i) {
        handler = std::make_unique<CountingHandler>(service);
        handler->subscribe("a");
        ASSERT_TRUE(eventually([&] { return handler->calls != 0; }));
        handler.reset();
    }
}

TEST_F(StandardZelEventHandlerTest, ManySubscriptionsOneAfterTheOtherLeaveNoMemoryBehind)
{
    journal.setKeeping(false);
    log.setKeeping(false);
    const auto cycle = [&](int times) {
        for (int i = 0; i < times; ++i) {
            handler->subscribe("a");
            handler->unsubscribe();
        }
    };
    cycle(500);
    const std::size_t before = mallinfo2().uordblks;
    cycle(10'000);
    const std::size_t after = mallinfo2().uordblks;
    EXPECT_LT(after, before + 100'000) << "bytes of memory, 10 of each cycle";
    EXPECT_EQ(core.initializations(std::this_thread::get_id()), 0);
    ASSERT_TRUE(eventually([&] { return core.channels().empty(); }));
    EXPECT_EQ(core.eventCount(), 0);
}

} // namespace
