// SPDX-License-Identifier: Apache-2.0
// Each call of the event library fails in turn, in each operation of the dispatcher that makes it.
#include "core/ZelEventDispatcher.h"

#include "CoreTest.h"

#include <tamo/Exception.h>

#include <gmock/gmock.h>

namespace {

using tamotest::Call;
using tamotest::eventually;
using testing::ElementsAre;

const char started[] = "ZelEventDispatcher::processZelEvents() - thread started";
const char stopped[] = "ZelEventDispatcher::processZelEvents() - thread stopped";
const char invalid[] =
    "ZelEventDispatcher::registerForEvents() - zel channel for thread is invalid";
const char getEventLine[] = "ZelEventDispatcher::processZelEvents() - failed to get event";

class ZelEventDispatcherFailureTest : public tamotest::CoreTest
{
protected:
    /** Nothing is held, and nothing is left that would keep it from working. */
    void expectToWork()
    {
        log.clear();
        add(third, thirdHandler);
        ASSERT_TRUE(deliver(third, 33));
        EXPECT_TRUE(thirdHandler.waitForDispatches(1));
        remove(third, thirdHandler);
    }

    void expectErrnoWasCleared(const std::string& operation)
    {
        for (const Call& call : journal.calls(operation))
            EXPECT_EQ(call.errnoBefore, 0) << operation;
    }
};

struct StartFailure
{
    const char* name;
    const char* operation;
    int nth;
    int error;
    const char* line; // null: it has none of its own
};

class FailedStart : public ZelEventDispatcherFailureTest,
                    public testing::WithParamInterface<StartFailure>
{
protected:
    std::vector<std::string> expectedLines()
    {
        std::vector<std::string> lines = {started};
        if (GetParam().line)
            lines.emplace_back(GetParam().line);
        lines.emplace_back(invalid);
        return lines;
    }
};

TEST_P(FailedStart, ThrowsInTheThreadThatRegistersAndTheNextOneStartsAfresh)
{
    journal.fail(GetParam().operation, GetParam().nth, GetParam().error);
    errno = ERANGE;
    EXPECT_THROW(add(first, handler), tamo::Exception);
    EXPECT_EQ(log.lines(), expectedLines());
    if (GetParam().line)
        expectErrnoWasCleared(GetParam().operation);
    EXPECT_EQ(journal.count("first.requestEvents"), 0);
    EXPECT_EQ(core.surplusShutdowns(), journal.count("core.shutdown"));
    EXPECT_EQ(core.initializations(std::this_thread::get_id()), 0);
    expectToWork();
}

TEST_P(FailedStart, FailsForEachOfTheThreadsThatWaitForIt)
{
    constexpr int threads = 8;
    std::vector<std::unique_ptr<tamotest::SubstituteProvider>> providers;
    for (int i = 0; i < threads; ++i) {
        providers.push_back(std::make_unique<tamotest::SubstituteProvider>(
            journal, core, "provider" + std::to_string(i), 60 + i));
    }
    // The start fails when all of them wait: the one that starts it, and those behind it.
    std::atomic<int> waiting{0};
    std::atomic<int> exceptions{0};
    journal.before("core.initialize",
                   [&] { EXPECT_TRUE(eventually([&] { return waiting == threads; })); });
    journal.fail(GetParam().operation, GetParam().nth, GetParam().error);
    tamotest::atOnce(threads, [&](int i) {
        ++waiting;
        try {
            Dispatcher::registerForEvents(providers[static_cast<std::size_t>(i)].get(), 0,
                                          &handler);
        } catch (const tamo::Exception&) {
            ++exceptions;
        }
    });
    journal.before("core.initialize", nullptr);
    // One that had not got as far as waiting starts another thread, which works.
    EXPECT_GE(exceptions, 1);
    EXPECT_EQ(log.count(invalid), exceptions);
    EXPECT_EQ(log.count(started), 1 + (exceptions < threads ? 1 : 0));
    Dispatcher::forget(&handler);
    expectToWork();
}

std::string nameOf(const testing::TestParamInfo<StartFailure>& info)
{
    return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(
    Each, FailedStart,
    testing::Values(
        StartFailure{"Initialize", "core.initialize", 1, EIO,
                     "ZelEventDispatcher::processZelEvents() - failed to initialize zel"},
        StartFailure{"InitializeWithoutErrno", "core.initialize", 1, 0,
                     "ZelEventDispatcher::processZelEvents() - failed to initialize zel"},
        StartFailure{"QuitDomain", "core.registerDomain", 1, EIO,
                     "ZelEventDispatcher::processZelEvents() - failed to register quit event"},
        StartFailure{"RegisterDomain", "core.registerDomain", 2, 0,
                     "ZelEventDispatcher::processZelEvents() - failed to register \"register "
                     "domain\" event"},
        StartFailure{"DeregisterDomain", "core.registerDomain", 3, EIO,
                     "ZelEventDispatcher::processZelEvents() - failed to register \"deregister "
                     "domain\" event"},
        StartFailure{"Channel", "core.channelGetActive", 1, EMFILE, nullptr}),
    nameOf);

struct PushFailure
{
    const char* name;
    const char* operation;
    bool isOnRemoval;
    int nth; // from the beginning of the operation that fails
    const char* line;
};

class FailedPush : public ZelEventDispatcherFailureTest,
                   public testing::WithParamInterface<PushFailure>
{
};

TEST_P(FailedPush, ThrowsAfterItsLineAndLeavesNothingBehind)
{
    const PushFailure& failure = GetParam();
    for (const int error : {EIO, 0}) {
        SCOPED_TRACE(error);
        log.clear();
        if (failure.isOnRemoval)
            add(first, handler);
        const int destroyed = journal.count("core.eventDestroy");
        const int created = journal.count("core.eventCreate");
        journal.fail(failure.operation, failure.nth, error);
        errno = ERANGE;
        if (failure.isOnRemoval)
            EXPECT_THROW(remove(first, handler), tamo::Exception);
        else
            EXPECT_THROW(add(first, handler), tamo::Exception);
        EXPECT_EQ(log.count(failure.line), 1);
        EXPECT_GT(journal.count("core.eventCreate"), created);
        const bool isPush = std::string(failure.operation) == "core.channelPushEvent";
        EXPECT_EQ(journal.count("core.eventDestroy") - destroyed, isPush ? 1 : 0);
        expectErrnoWasCleared("core.eventCreate");
        expectErrnoWasCleared("core.channelPushEvent");
        expectToWork();
        Dispatcher::forget(&handler);
    }
}

std::string nameOfPush(const testing::TestParamInfo<PushFailure>& info)
{
    return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(
    Each, FailedPush,
    testing::Values(
        PushFailure{"CreateOfRequest", "core.eventCreate", false, 1,
                    "ZelEventDispatcher::pushRequestEventsToDispatchThread() - failed to create "
                    "\"register domain\" event"},
        PushFailure{"PushOfRequest", "core.channelPushEvent", false, 1,
                    "ZelEventDispatcher::pushRequestEventsToDispatchThread() - failed to push "
                    "\"register domain\" event"},
        PushFailure{"CreateOfStop", "core.eventCreate", true, 1,
                    "ZelEventDispatcher::pushStopEventsToDispatchThread() - failed to create "
                    "\"deregister domain\" event"},
        PushFailure{"PushOfStop", "core.channelPushEvent", true, 1,
                    "ZelEventDispatcher::pushStopEventsToDispatchThread() - failed to push "
                    "\"deregister domain\" event"},
        PushFailure{"CreateOfQuit", "core.eventCreate", true, 2,
                    "ZelEventDispatcher::stop() - failed to create quit event"},
        PushFailure{"PushOfQuit", "core.channelPushEvent", true, 2,
                    "ZelEventDispatcher::stop() - failed to post quit event"}),
    nameOfPush);

TEST_F(ZelEventDispatcherFailureTest, AFailedRequestLeavesTheRegistrationsOfOthersAlone)
{
    add(first, handler);
    journal.fail("core.channelPushEvent");
    EXPECT_THROW(add(second, otherHandler), tamo::Exception);
    ASSERT_TRUE(deliver(first, 1));
    EXPECT_TRUE(handler.waitForDispatches(1));
    EXPECT_FALSE(second.deliver(1));
    EXPECT_NO_THROW(add(second, otherHandler));
    remove(first, handler);
    remove(second, otherHandler);
}

TEST_F(ZelEventDispatcherFailureTest, AFailedRequestWithoutOtherRegistrationsEndsTheThread)
{
    journal.fail("core.eventCreate");
    EXPECT_THROW(add(first, handler), tamo::Exception);
    EXPECT_THAT(log.lines(),
                ElementsAre(started,
                            "ZelEventDispatcher::pushRequestEventsToDispatchThread() - failed to "
                            "create \"register domain\" event",
                            stopped));
}

TEST_F(ZelEventDispatcherFailureTest, AFailedStopKeepsTheRegistration)
{
    add(first, handler);
    journal.fail("core.eventCreate");
    EXPECT_THROW(remove(first, handler), tamo::Exception);
    ASSERT_TRUE(deliver(first, 1));
    EXPECT_TRUE(handler.waitForDispatches(1));
    remove(first, handler);
    EXPECT_EQ(log.lines().back(), stopped);
}

TEST_F(ZelEventDispatcherFailureTest, AFailedQuitLeavesAThreadThatTheNextRegistrationUses)
{
    add(first, handler);
    journal.fail("core.eventCreate", 2);
    EXPECT_THROW(remove(first, handler), tamo::Exception);
    EXPECT_EQ(log.count(stopped), 0);
    add(second, otherHandler);
    ASSERT_TRUE(deliver(second, 2));
    EXPECT_TRUE(otherHandler.waitForDispatches(1));
    EXPECT_EQ(journal.count("core.initialize"), 1);
    remove(second, otherHandler);
    EXPECT_EQ(log.lines().back(), stopped);
}

class FailedGetEvent : public ZelEventDispatcherFailureTest
{
protected:
    /** Ends the thread: the event that makes it ask for another one is its last. */
    void failGetEvent(int error)
    {
        ASSERT_TRUE(journal.waitForCount("core.getEvent", 2)); // it waits for the first event
        journal.failAlways("core.getEvent", error);
        ASSERT_TRUE(deliver(first, 1));
        ASSERT_TRUE(log.waitFor(getEventLine));
        journal.succeed("core.getEvent");
        ASSERT_TRUE(eventually([&] { return core.channels().empty(); }));
    }
};

TEST_F(FailedGetEvent, EndsTheThreadAndTheProcessLives)
{
    add(first, handler);
    failGetEvent(EIO);
    EXPECT_THAT(log.lines(), ElementsAre(started, getEventLine));
    expectErrnoWasCleared("core.getEvent");
    EXPECT_NO_THROW(remove(first, handler));
    EXPECT_EQ(journal.count("first.stopEvents"), 0);
    expectToWork();
}

TEST_F(FailedGetEvent, TheNextRegistrationServesThoseThatWereThereToo)
{
    add(first, handler, 7);
    failGetEvent(0);
    add(second, otherHandler);
    EXPECT_EQ(journal.calls("first.requestEvents").at(1).arguments, "7");
    const std::size_t before = handler.dispatches().size();
    ASSERT_TRUE(deliver(first, 5));
    ASSERT_TRUE(deliver(second, 6));
    EXPECT_TRUE(handler.waitForDispatches(before + 1));
    EXPECT_TRUE(otherHandler.waitForDispatches(1));
    remove(first, handler);
    remove(second, otherHandler);
    EXPECT_THAT(log.lines(), ElementsAre(started, getEventLine, started, stopped));
}

TEST_F(FailedGetEvent, AFailedStartAfterItKeepsTheRegistrationsForTheOneAfterThat)
{
    add(first, handler);
    failGetEvent(EIO);
    journal.fail("core.initialize");
    EXPECT_THROW(add(second, otherHandler), tamo::Exception);
    add(third, thirdHandler);
    const std::size_t before = handler.dispatches().size();
    ASSERT_TRUE(deliver(first, 5));
    EXPECT_TRUE(handler.waitForDispatches(before + 1));
    EXPECT_FALSE(second.deliver(1));
    remove(first, handler);
    remove(third, thirdHandler);
}

TEST_F(FailedGetEvent, WhileTheThreadIsBeingEndedIsItsEnd)
{
    add(first, handler);
    ASSERT_TRUE(journal.waitForCount("core.getEvent", 2));
    journal.failAlways("core.getEvent");
    EXPECT_NO_THROW(remove(first, handler));
    journal.succeed("core.getEvent");
    EXPECT_EQ(log.count(getEventLine), 1);
    expectToWork();
}

} // namespace
