// SPDX-License-Identifier: Apache-2.0
#include "core/ZelEventDispatcher.h"

#include "CoreTest.h"

#include <tamo/Exception.h>

#include <gmock/gmock.h>

#include <QMetaMethod>

namespace {

using tamotest::Call;
using testing::ElementsAre;
using testing::IsEmpty;

const char started[] = "ZelEventDispatcher::processZelEvents() - thread started";
const char stopped[] = "ZelEventDispatcher::processZelEvents() - thread stopped";

class ZelEventDispatcherTest : public tamotest::CoreTest
{
};

/** What a thread called, in its order. */
std::vector<std::string> operationsOf(std::thread::id thread, const std::vector<Call>& calls)
{
    std::vector<std::string> names;
    for (const Call& call : calls) {
        if (call.thread == thread)
            names.push_back(call.operation);
    }
    return names;
}

TEST_F(ZelEventDispatcherTest, HasOneSlotThatIsTheThreadsBody)
{
    const QMetaObject& metaObject = Dispatcher::staticMetaObject;
    ASSERT_EQ(metaObject.methodCount() - metaObject.methodOffset(), 1);
    const QMetaMethod slot = metaObject.method(metaObject.methodOffset());
    EXPECT_EQ(slot.methodType(), QMetaMethod::Slot);
    EXPECT_EQ(slot.methodSignature(), "processZelEvents()");
}

TEST_F(ZelEventDispatcherTest, TheFirstRegistrationStartsTheThreadAndTheLastRemovalEndsIt)
{
    EXPECT_THAT(log.lines(), IsEmpty());
    add(first, handler);
    EXPECT_THAT(log.lines(), ElementsAre(started));
    add(second, otherHandler);
    remove(first, handler);
    EXPECT_THAT(log.lines(), ElementsAre(started));
    remove(second, otherHandler);
    EXPECT_THAT(log.lines(), ElementsAre(started, stopped));
}

TEST_F(ZelEventDispatcherTest, TheCallsOfALifeComeInTheirOrder)
{
    add(first, handler);
    remove(first, handler);
    const std::vector<Call> calls = journal.calls();
    EXPECT_THAT(operationsOf(calls.at(0).thread, calls),
                ElementsAre("core.initialize", "core.registerDomain", "core.registerDomain",
                            "core.registerDomain", "core.channelGetActive", "core.getEvent",
                            "core.eventGetDomain", "core.eventGetPayload", "first.requestEvents",
                            "core.getEvent", "core.eventGetDomain", "core.eventGetPayload",
                            "first.stopEvents", "core.getEvent", "core.eventGetDomain"));
    EXPECT_THAT(operationsOf(std::this_thread::get_id(), calls),
                ElementsAre("core.eventCreate", "core.channelPushEvent", "core.eventCreate",
                            "core.channelPushEvent", "core.eventCreate", "core.channelPushEvent",
                            "core.shutdown"));
}

TEST_F(ZelEventDispatcherTest, OnlyTheDispatchThreadAsksForEventsAndStopsThem)
{
    add(first, handler, 7);
    add(second, otherHandler, 8);
    remove(first, handler, 9);
    remove(second, otherHandler, 10);
    const std::thread::id thread = journal.calls("core.initialize").at(0).thread;
    EXPECT_NE(thread, std::this_thread::get_id());
    const std::vector<std::pair<std::string, std::string>> expected = {
        {"first.requestEvents", "7"},
        {"second.requestEvents", "8"},
        {"first.stopEvents", "9"},
        {"second.stopEvents", "10"}};
    std::vector<std::pair<std::string, std::string>> actual;
    for (const Call& call : journal.calls()) {
        if (call.operation.rfind("core.", 0) != 0) {
            actual.emplace_back(call.operation, call.arguments);
            EXPECT_EQ(call.thread, thread);
        }
    }
    EXPECT_EQ(actual, expected);
    EXPECT_EQ(journal.calls("core.shutdown").at(0).thread, std::this_thread::get_id());
    EXPECT_EQ(journal.count("core.shutdown"), 1);
}

TEST_F(ZelEventDispatcherTest, PrivateEventsHaveCodeZeroAndTheQuitEventHasNoPayload)
{
    add(first, handler);
    const std::vector<int> domains = core.privateDomains();
    ASSERT_EQ(domains.size(), 3U);
    remove(first, handler);
    std::vector<std::string> created;
    for (const Call& call : journal.calls("core.eventCreate"))
        created.push_back(call.arguments);
    EXPECT_THAT(created, ElementsAre(std::to_string(domains[1]) + ", 0, pointer",
                                     std::to_string(domains[2]) + ", 0, pointer",
                                     std::to_string(domains[0]) + ", 0, null"));
}

TEST_F(ZelEventDispatcherTest, AnEventReachesTheHandlerOfItsDomainOnTheDispatchThread)
{
    add(first, handler);
    add(second, otherHandler);
    ASSERT_TRUE(deliver(first, 11));
    ASSERT_TRUE(deliver(second, 22));
    ASSERT_TRUE(handler.waitForDispatches(1));
    ASSERT_TRUE(otherHandler.waitForDispatches(1));
    EXPECT_EQ(handler.dispatches()[0].code, 11);
    EXPECT_EQ(otherHandler.dispatches()[0].code, 22);
    EXPECT_EQ(handler.dispatches()[0].thread, journal.calls("core.getEvent").at(0).thread);
    remove(first, handler);
    remove(second, otherHandler);
    EXPECT_EQ(handler.dispatches().size(), 1U);
    EXPECT_EQ(otherHandler.dispatches().size(), 1U);
}

TEST_F(ZelEventDispatcherTest, EventsAreTakenWithoutALimitOfTime)
{
    add(first, handler);
    remove(first, handler);
    for (const Call& call : journal.calls("core.getEvent"))
        EXPECT_EQ(call.arguments, "-1");
}

TEST_F(ZelEventDispatcherTest, TheSecondHandlerForADomainIsRefusedWithALine)
{
    add(first, handler);
    EXPECT_NO_THROW(add(first, otherHandler));
    EXPECT_THAT(log.lines(),
                ElementsAre(started,
                            "ZelEventDispatcher::registerForEvents() - domain (51) already "
                            "registered. Ignoring registration request."));
    ASSERT_TRUE(deliver(first, 1));
    ASSERT_TRUE(handler.waitForDispatches(1));
    EXPECT_THAT(otherHandler.dispatches(), IsEmpty());
    EXPECT_EQ(journal.count("first.requestEvents"), 1);
    remove(first, handler);
}

TEST_F(ZelEventDispatcherTest, RemovingAnotherHandlerThanTheRegisteredChangesNothing)
{
    add(first, handler);
    remove(first, otherHandler);
    remove(second, handler);
    ASSERT_TRUE(deliver(first, 1));
    ASSERT_TRUE(handler.waitForDispatches(1));
    EXPECT_EQ(journal.count("first.stopEvents"), 0);
    EXPECT_EQ(journal.count("second.stopEvents"), 0);
    EXPECT_THAT(log.lines(), ElementsAre(started));
    remove(first, handler);
}

TEST_F(ZelEventDispatcherTest, RemovingWhereThereIsNoThreadDoesNothing)
{
    remove(first, handler);
    EXPECT_THAT(journal.calls(), IsEmpty());
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(ZelEventDispatcherTest, NoHandlerForADomainWithoutOneCountsAsTheRegistered)
{
    add(first, handler);
    Dispatcher::unregisterForEvents(&second, 5, nullptr);
    ASSERT_TRUE(journal.waitForCount("second.stopEvents", 1));
    EXPECT_EQ(journal.calls("second.stopEvents").at(0).arguments, "5");
    EXPECT_THAT(log.lines(), ElementsAre(started));
    remove(first, handler);
}

TEST_F(ZelEventDispatcherTest, TheNextRegistrationStartsAnotherThreadWithFreshDomains)
{
    add(first, handler);
    const std::vector<int> domains = core.privateDomains();
    remove(first, handler);
    add(first, handler);
    EXPECT_THAT(core.privateDomains(), testing::SizeIs(testing::Ge(3U)));
    EXPECT_GT(core.privateDomains().back(), domains.back());
    EXPECT_EQ(journal.count("core.registerDomain"), 6);
    ASSERT_TRUE(deliver(first, 5));
    ASSERT_TRUE(handler.waitForDispatches(1));
    remove(first, handler);
    EXPECT_THAT(log.lines(), ElementsAre(started, stopped, started, stopped));
}

TEST_F(ZelEventDispatcherTest, AnEventForADomainWithoutHandlerIsLoggedAndDropped)
{
    add(first, handler);
    const int channel = core.channels().at(0);
    ASSERT_TRUE(core.pushTo(channel, 77, 1));
    ASSERT_TRUE(log.waitFor("ZelEventDispatcher::processZelEvents() - got an event for an "
                            "unregistered domain: 77"));
    ASSERT_TRUE(deliver(first, 1));
    ASSERT_TRUE(handler.waitForDispatches(1));
    EXPECT_EQ(log.lines().size(), 2U);
    remove(first, handler);
}

TEST_F(ZelEventDispatcherTest, APrivateEventWithoutPayloadOrProviderIsLoggedAndSkipped)
{
    const char registerLine[] = "applyRequestEvents() - \"register domain\" event payload error";
    const char deregisterLine[] = "applyStopEvents() - \"deregister domain\" event payload error";
    add(first, handler);
    const int channel = core.channels().at(0);
    const std::vector<int> domains = core.privateDomains();
    const zel_event_payload_t noProvider = {0, 3, 0};
    ASSERT_TRUE(core.pushTo(channel, domains.at(1), 0));
    ASSERT_TRUE(core.pushTo(channel, domains.at(1), 0, {}, &noProvider));
    ASSERT_TRUE(core.pushTo(channel, domains.at(2), 0));
    ASSERT_TRUE(core.pushTo(channel, domains.at(2), 0, {}, &noProvider));
    ASSERT_TRUE(deliver(first, 1));
    ASSERT_TRUE(handler.waitForDispatches(1));
    EXPECT_THAT(log.lines(),
                ElementsAre(started, registerLine, registerLine, deregisterLine, deregisterLine));
    remove(first, handler);
}

TEST_F(ZelEventDispatcherTest, TheResultOfARequestIsNotLookedAt)
{
    journal.fail("first.requestEvents");
    journal.fail("first.stopEvents");
    EXPECT_NO_THROW(add(first, handler));
    ASSERT_TRUE(journal.waitForCount("first.requestEvents", 1));
    EXPECT_NO_THROW(remove(first, handler));
    EXPECT_THAT(log.lines(), ElementsAre(started, stopped));
}

TEST_F(ZelEventDispatcherTest, EventsAheadOfTheQuitEventAreRoutedFirst)
{
    // The dispatch thread is kept where it takes its next event until all others are queued.
    std::mutex mutex;
    std::condition_variable changed;
    bool isOpen = false;
    add(first, handler);
    const int channel = core.channels().at(0);
    ASSERT_TRUE(journal.waitForCount("core.getEvent", 2)); // the request has been carried out
    journal.before("core.getEvent", [&] {
        std::unique_lock lock(mutex);
        changed.wait(lock, [&] { return isOpen; });
    });
    ASSERT_TRUE(deliver(first, 1));
    ASSERT_TRUE(handler.waitForDispatches(1));
    for (int i = 0; i < 100; ++i)
        ASSERT_TRUE(core.pushTo(channel, 51, i));
    // The removal cannot return before the gate is opened; so opening waits for the quit event.
    std::thread opener([&] {
        EXPECT_TRUE(journal.waitForCount("core.channelPushEvent", 3));
        const std::lock_guard lock(mutex);
        isOpen = true;
        changed.notify_all();
    });
    remove(first, handler);
    opener.join();
    journal.before("core.getEvent", nullptr);
    EXPECT_EQ(handler.dispatches().size(), 1U);
    EXPECT_EQ(log.count("ZelEventDispatcher::processZelEvents() - got an event for an unregistered "
                        "domain: 51"),
              100);
    EXPECT_EQ(log.lines().back(), stopped);
}

TEST_F(ZelEventDispatcherTest, AnExceptionThatLeavesAHandlerEndsInTheThread)
{
    handler.whenCalled = [] { throw std::runtime_error("a handler's"); };
    add(first, handler);
    add(second, otherHandler);
    ASSERT_TRUE(deliver(first, 1));
    ASSERT_TRUE(deliver(second, 2));
    ASSERT_TRUE(otherHandler.waitForDispatches(1));
    EXPECT_THAT(
        log.lines(),
        ElementsAre(started,
                    "ZelEventDispatcher::processZelEvents() - a handler threw an exception"));
    remove(first, handler);
    remove(second, otherHandler);
}

TEST_F(ZelEventDispatcherTest, TheDispatchThreadItselfIsRefused)
{
    std::atomic<int> refusals{0};
    handler.whenCalled = [&] {
        try {
            add(second, otherHandler);
        } catch (const tamo::Exception&) {
            ++refusals;
        }
        try {
            remove(first, handler);
        } catch (const tamo::Exception&) {
            ++refusals;
        }
    };
    add(first, handler);
    EXPECT_FALSE(Dispatcher::isDispatchThread());
    ASSERT_TRUE(deliver(first, 1));
    EXPECT_TRUE(tamotest::eventually([&] { return refusals == 2; }));
    remove(first, handler);
    EXPECT_THAT(
        log.lines(),
        ElementsAre(started,
                    "ZelEventDispatcher::registerForEvents() - called on the dispatch thread",
                    "ZelEventDispatcher::unregisterForEvents() - called on the dispatch "
                    "thread",
                    stopped));
}

TEST_F(ZelEventDispatcherTest, AHandlerThatIsForgottenEndsTheThreadWithoutAskingThePlatform)
{
    add(first, handler);
    add(second, handler);
    Dispatcher::forget(&handler);
    EXPECT_THAT(log.lines(), ElementsAre(started, stopped));
    EXPECT_EQ(journal.count("first.stopEvents"), 0);
    EXPECT_EQ(journal.count("second.stopEvents"), 0);
    Dispatcher::forget(&handler);
}

} // namespace
