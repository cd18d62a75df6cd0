// SPDX-License-Identifier: Apache-2.0
#include "ZelTest.h"

#include <cerrno>
#include <thread>
#include <vector>

namespace tamotest {
namespace {

using ::testing::ElementsAre;

class InitializationTest : public ZelTest
{
};

void ignore(void*) {}

int ignoreReady(int, int, void*)
{
    return 0;
}

TEST_F(InitializationTest, FunctionsThatNeedItFailWithEpermInAnyOtherThread)
{
    zel_event_t* const event = make(1);
    inThread([&] {
        int number = 0;
        void* data = nullptr;
        zel_event_t* taken = nullptr;
        EXPECT_THAT(zel_shutdown(), FailsWith(EPERM));
        EXPECT_THAT(zel_channel_create(&number), FailsWith(EPERM));
        EXPECT_THAT(zel_channel_set_active(channel(), nullptr), FailsWith(EPERM));
        EXPECT_THAT(zel_channel_get_active(), FailsWith(EPERM));
        EXPECT_THAT(zel_channel_destroy(channel()), FailsWith(EPERM));
        EXPECT_THAT(zel_get_event(&taken, 0), FailsWith(EPERM));
        EXPECT_THAT(zel_push_event(event), FailsWith(EPERM));
        EXPECT_THAT(zel_register_domain(), FailsWith(EPERM));
        EXPECT_THAT(zel_register_shutdown_handler(ignore, nullptr), FailsWith(EPERM));
        EXPECT_THAT(zel_register_channel_destroy_handler(channel(), ignore, nullptr),
                    FailsWith(EPERM));
        EXPECT_THAT(zel_add_fd(0, ZEL_IO_INPUT, ignoreReady, nullptr), FailsWith(EPERM));
        EXPECT_THAT(zel_remove_fd(0), FailsWith(EPERM));
        EXPECT_THAT(zel_set_domain_data(domain(), nullptr, nullptr), FailsWith(EPERM));
        EXPECT_THAT(zel_get_domain_data(domain(), &data), FailsWith(EPERM));
    });
    zel_event_destroy(event);
}

TEST_F(InitializationTest, OthersNeedNone)
{
    inThread([&] {
        int version = 0;
        EXPECT_EQ(zel_get_version(&version), 0);
        EXPECT_EQ(version, ZEL_VERSION);
        EXPECT_EQ(zel_set_verbosity(0), 0);
        zel_free(nullptr);
        push(channel(), 7);
    });
    EXPECT_EQ(take(), 7);
    EXPECT_THAT(zel_get_version(nullptr), FailsWith(EINVAL));
}

TEST_F(InitializationTest, IsCounted)
{
    EXPECT_EQ(zel_initialize(), 0);
    EXPECT_EQ(zel_initialize(), 0);
    EXPECT_EQ(zel_shutdown(), 0);
    EXPECT_EQ(zel_shutdown(), 0);
    EXPECT_EQ(zel_channel_get_active(), channel()) << "it ended too early";
}

TEST_F(InitializationTest, AShutdownNeverUndoesAnotherThreads)
{
    inThread([] {
        EXPECT_THAT(zel_shutdown(), FailsWith(EPERM));
        EXPECT_EQ(zel_initialize(), 0);
        EXPECT_EQ(zel_shutdown(), 0);
        EXPECT_THAT(zel_shutdown(), FailsWith(EPERM));
    });
    EXPECT_EQ(zel_channel_get_active(), channel());
}

TEST_F(InitializationTest, LeavesErrnoAloneOnSuccess)
{
    errno = E2BIG;
    EXPECT_EQ(zel_initialize(), 0);
    push(channel(), 1);
    EXPECT_EQ(take(), 1);
    EXPECT_EQ(take(0), -1);
    EXPECT_EQ(take(1), -1);
    EXPECT_EQ(zel_shutdown(), 0);
    EXPECT_EQ(errno, E2BIG);
}

struct Trace
{
    std::vector<int> calls;
    int channel = 0;
    std::thread::id thread;
};

template<int Number>
void record(void* data)
{
    auto* const trace = static_cast<Trace*>(data);
    trace->calls.push_back(Number);
    trace->channel = zel_channel_get_active();
    trace->thread = std::this_thread::get_id();
}

TEST_F(InitializationTest, LastShutdownRunsTheHandlersTheLastFirstWhileChannelsAreThere)
{
    Trace trace;
    int active = 0;
    std::thread::id thread;
    inThread([&] {
        zel_initialize();
        zel_initialize();
        active = zel_channel_get_active();
        thread = std::this_thread::get_id();
        EXPECT_EQ(zel_register_shutdown_handler(record<1>, &trace), 0);
        EXPECT_EQ(zel_register_shutdown_handler(record<2>, &trace), 0);
        EXPECT_EQ(zel_shutdown(), 0);
        EXPECT_TRUE(trace.calls.empty());
        EXPECT_EQ(zel_shutdown(), 0);
        EXPECT_THAT(trace.calls, ElementsAre(2, 1));
    });
    EXPECT_THAT(trace.calls, ElementsAre(2, 1));
    EXPECT_EQ(trace.channel, active);
    EXPECT_EQ(trace.thread, thread);
    EXPECT_THAT(zel_register_shutdown_handler(nullptr, nullptr), FailsWith(EINVAL));
}

TEST_F(InitializationTest, AThreadsEndRunsTheHandlersInTheThread)
{
    Trace trace;
    int active = 0;
    std::thread::id thread;
    inThread([&] {
        zel_initialize();
        zel_initialize();
        active = zel_channel_get_active();
        thread = std::this_thread::get_id();
        zel_register_shutdown_handler(record<1>, &trace);
    });
    EXPECT_THAT(trace.calls, ElementsAre(1));
    EXPECT_EQ(trace.channel, active);
    EXPECT_EQ(trace.thread, thread);
}

void shutDownAgain(void* data)
{
    static_cast<Trace*>(data)->calls.push_back(zel_shutdown());
    EXPECT_EQ(errno, EPERM);
    EXPECT_THAT(zel_register_shutdown_handler(ignore, nullptr), FailsWith(EPERM));
}

TEST_F(InitializationTest, AHandlerCanNeitherShutDownNorAddHandlers)
{
    Trace trace;
    inThread([&] {
        zel_initialize();
        zel_register_shutdown_handler(shutDownAgain, &trace);
        EXPECT_EQ(zel_shutdown(), 0);
    });
    EXPECT_THAT(trace.calls, ElementsAre(-1));
}

void initializeAgain(void*)
{
    EXPECT_EQ(zel_initialize(), 0);
}

TEST_F(InitializationTest, AHandlerMayInitializeAnew)
{
    inThread([&] {
        zel_initialize();
        const int first = zel_channel_get_active();
        zel_register_shutdown_handler(initializeAgain, nullptr);
        EXPECT_EQ(zel_shutdown(), 0);
        EXPECT_GT(zel_channel_get_active(), first);
        EXPECT_EQ(zel_shutdown(), 0);
        EXPECT_THAT(zel_shutdown(), FailsWith(EPERM));
    });
}

TEST_F(InitializationTest, AThreadsEndFreesItsChannelsAndCompletesItsEvents)
{
    static int completed;
    completed = 0;
    int ended = 0;
    const auto completion = [](zel_event_t*) { ++completed; };
    inThread([&] {
        zel_initialize();
        ended = zel_channel_get_active();
        for (int i = 0; i < 10; ++i)
            push(ended, i, 0, completion);
        EXPECT_EQ(take(), 0);
    });
    EXPECT_EQ(completed, 10);
    zel_event_t* const event = make(1);
    EXPECT_THAT(zel_channel_push_event(ended, event), FailsWith(EINVAL));
    zel_event_destroy(event);
}

/** A thread's own object that uses the library in its destructor. */
struct LateUser
{
    explicit LateUser(int* result) : m_result(result) {}
    ~LateUser()
    {
        zel_event_t* event = nullptr;
        *m_result = zel_get_event(&event, 0) == 0 && event ? zel_event_get_code(event) : -1;
        zel_initialize();
        zel_shutdown();
    }

    int* m_result;
};

TEST_F(InitializationTest, ThreadLocalObjectsMayUseItInTheirDestructors)
{
    int early = 0;
    int late = 0;
    inThread([&] {
        thread_local LateUser first(&early); // is destroyed last
        static_cast<void>(first);
        zel_initialize();
        thread_local LateUser second(&late);
        static_cast<void>(second);
        push(zel_channel_get_active(), 8);
        push(zel_channel_get_active(), 9);
    });
    EXPECT_EQ(late, 8);
    EXPECT_EQ(early, 9);
}

} // namespace
} // namespace tamotest
