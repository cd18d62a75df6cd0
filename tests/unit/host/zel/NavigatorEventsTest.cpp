// SPDX-License-Identifier: Apache-2.0
#include "NavigatorTest.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <string>

namespace tamotest {
namespace {

/** All parts of an event, the code first. */
std::string describe(const zel_event_t* event)
{
    if (!event)
        return "no event";
    EXPECT_EQ(zel_event_get_domain(event), navigator_get_domain());
    EXPECT_EQ(zel_event_get_payload(event), nullptr);
    return std::to_string(zel_event_get_code(event)) + " state " +
           std::to_string(navigator_event_get_window_state(event)) + " angle " +
           std::to_string(navigator_event_get_orientation_angle(event)) + " group " +
           textOf(navigator_event_get_groupid(event)) + " data " +
           textOf(navigator_event_get_data(event)) + " id " +
           textOf(navigator_event_get_id(event)) + " err " + textOf(navigator_event_get_err(event));
}

std::string parts(const std::string& state, const std::string& angle, const std::string& group,
                  const std::string& data, const std::string& id, const std::string& err)
{
    return " state " + state + " angle " + angle + " group " + group + " data " + data + " id " +
           id + " err " + err;
}

const std::string None = "(none)";
const std::string NoParts = parts("-1", "-1", None, None, None, None);

// With every part that there is, so that those which an event does not have are seen to be left
// out.
const std::string AllLines =
    "state:n:2\nangle:n:270\ngroup::app-7\ndata::http://x/\\\\\nid::i1\nerr::no\n";

struct Case
{
    std::string message;
    int code;
    std::string parts;
};

class NavigatorEventsTest : public NavigatorTest
{
protected:
    void SetUp() override
    {
        NavigatorTest::SetUp();
        ASSERT_EQ(navigator_request_events(0), 0);
        client = navigator->awaitClient();
        ASSERT_FALSE(client.empty());
    }

    std::string client;
};

TEST_F(NavigatorEventsTest, EveryMessageOfTheTableIsAnEventWithItsParts)
{
    const Case cases[] = {
        {"invoke", 1, parts("-1", "-1", None, "http://x/\\", None, None)},
        {"exit", 2, NoParts},
        {"windowState", 3, parts("2", "-1", "app-7", None, None, None)},
        {"swipeDown", 4, NoParts},
        {"swipeStart", 5, NoParts},
        {"lowMemory", 6, NoParts},
        {"orientationCheck", 7, parts("-1", "270", None, None, "i1", None)},
        {"orientation", 8, parts("-1", "270", None, None, "i1", None)},
        {"back", 9, NoParts},
        {"windowActive", 10, parts("-1", "-1", "app-7", None, None, None)},
        {"windowInactive", 11, parts("-1", "-1", "app-7", None, None, None)},
        {"orientationEnd", 12, parts("-1", "270", None, None, None, None)},
        {"orientationResult", 13, parts("-1", "270", None, None, "i1", "no")},
        {"windowLock", 14, NoParts},
        {"windowUnlock", 15, NoParts},
        {"event\ncode:n:-99", -99, parts("2", "270", "app-7", "http://x/\\", "i1", "no")},
    };
    for (const Case& one : cases) {
        ASSERT_EQ(navigator->send(client, "msg::" + one.message + '\n' + AllLines), 0);
        EXPECT_EQ(describe(take()), std::to_string(one.code) + one.parts);
        ASSERT_EQ(navigator->send(client, "msg::" + one.message + '\n'), 0);
        EXPECT_EQ(describe(take()), std::to_string(one.code) + NoParts);
    }
}

TEST_F(NavigatorEventsTest, APartThatIsMissingIsNoneWithEinval)
{
    navigator->send(client, "msg::exit\n");
    const zel_event_t* const event = take();
    ASSERT_NE(event, nullptr);
    zel_event_t* own = nullptr;
    const zel_event_payload_t payload{1, 2, 3};
    ASSERT_EQ(zel_event_create(&own, navigator_get_domain(), 3, &payload, nullptr), 0);
    zel_event_t* foreign = nullptr;
    ASSERT_EQ(zel_event_create(&foreign, zel_register_domain(), 3, &payload, nullptr), 0);
    for (const zel_event_t* const one :
         {event, static_cast<const zel_event_t*>(own), static_cast<const zel_event_t*>(foreign),
          static_cast<const zel_event_t*>(nullptr)}) {
        errno = 0;
        EXPECT_THAT(navigator_event_get_window_state(one), FailsWith(EINVAL));
        EXPECT_THAT(navigator_event_get_orientation_angle(one), FailsWith(EINVAL));
        for (const auto getter : {navigator_event_get_groupid, navigator_event_get_data,
                                  navigator_event_get_id, navigator_event_get_err}) {
            errno = 0;
            EXPECT_EQ(getter(one), nullptr);
            EXPECT_EQ(errno, EINVAL);
        }
    }
    zel_event_destroy(own);
    zel_event_destroy(foreign);
}

TEST_F(NavigatorEventsTest, WhatCannotBeReadIsLeftOutAndSaidWhereWanted)
{
    const char* const odd[] = {
        "other::x\n",
        "msg::\n",
        "msg::unknown\n",
        "msg::Exit\n",
        "msg:n:2\n",
        "msg:json:null\n",
        "msg:json:{\"msg\":\"exit\"}\n",
        "-msg\n",
        "msg::exit\n-msg\n",
        "msg::event\n",
        "msg::event\ncode::3\n",
        "msg::event\ncode:n:1.5\n",
        "msg::event\ncode:n:4294967296\n",
        "msg::windowState\nstate::0\n",
        "msg::windowState\nstate:n:0.5\n",
        "msg::windowState\nstate:n:1e300\n",
        "msg::windowState\nstate:n:0\ngroup:n:7\n",
        "msg::windowState\nstate:n:0\n-group\n",
        "msg::orientation\nangle:b:true\n",
        "msg::orientation\nangle:json:[90]\n",
        "msg::invoke\ndata:json:{}\n",
    };
    for (const unsigned verbosity : {0U, 1U}) {
        zel_set_verbosity(verbosity);
        for (const char* const lines : odd) {
            ::testing::internal::CaptureStderr();
            ASSERT_EQ(navigator->send(client, lines), 0);
            ASSERT_EQ(navigator->send(client, "msg::back\n"), 0);
            EXPECT_EQ(describe(take()), "9" + NoParts) << lines;
            const std::string said = ::testing::internal::GetCapturedStderr();
            EXPECT_EQ(said.find("left out") != std::string::npos, verbosity == 1) << lines << said;
        }
    }
    zel_set_verbosity(0);
}

TEST_F(NavigatorEventsTest, WhatIsQuotedMakesNoLinesOfItsOwn)
{
    zel_set_verbosity(1);
    ::testing::internal::CaptureStderr();
    navigator->send(client, "msg::a\\nb\n");
    EXPECT_EQ(take(50), nullptr);
    navigator->send(client, "msg::back\n");
    take();
    zel_set_verbosity(0);
    const std::string said = ::testing::internal::GetCapturedStderr();
    EXPECT_EQ(said.find('\n'), said.size() - 1) << said;
}

TEST_F(NavigatorEventsTest, TheLongestMessageArrivesWhole)
{
    constexpr std::size_t MaxText = 1'044'480;
    const std::string data(MaxText - 100, 'x');
    ASSERT_EQ(navigator->send(client, "msg::invoke\ndata::" + data + '\n'), 0);
    const zel_event_t* const event = take();
    ASSERT_NE(event, nullptr);
    EXPECT_EQ(navigator_event_get_data(event), data);
}

TEST_F(NavigatorEventsTest, ComeInOrderAndNoneIsLeftOut)
{
    constexpr int Batch = 100; // less than a client's queue holds
    for (int i = 0; i < 500; i += Batch) {
        for (int j = i; j < i + Batch; ++j)
            ASSERT_EQ(navigator->send(client, "msg::event\ncode:n:" + std::to_string(j) + '\n'), 0);
        for (int j = i; j < i + Batch; ++j)
            ASSERT_EQ(zel_event_get_code(take()), j);
    }
}

TEST_F(NavigatorEventsTest, AskingAgainForTheSameChannelChangesNothing)
{
    const std::size_t before = openDescriptors();
    EXPECT_EQ(navigator_request_events(0), 0);
    EXPECT_EQ(openDescriptors(), before);
    navigator->send(client, "msg::back\n");
    EXPECT_EQ(describe(take()), "9" + NoParts);
    EXPECT_EQ(take(0), nullptr);
}

TEST_F(NavigatorEventsTest, EachChannelIsAClientUntilItsEnd)
{
    const int first = zel_channel_get_active();
    int second = 0;
    zel_channel_create(&second);
    zel_channel_set_active(second, nullptr);
    ASSERT_EQ(navigator_request_events(0), 0);
    const std::string other = navigator->awaitClient();
    EXPECT_NE(other, client);
    navigator->send(client, "msg::back\n");
    EXPECT_EQ(take(0), nullptr);
    navigator->send(other, "msg::exit\n");
    EXPECT_EQ(describe(take()), "2" + NoParts);
    zel_channel_destroy(second);
    EXPECT_EQ(navigator->nextOfEvents().substr(0, 9 + other.size()), "-@events." + other);
    zel_channel_set_active(first, nullptr);
    EXPECT_EQ(describe(take()), "9" + NoParts);
}

TEST_F(NavigatorEventsTest, AThreadsEndEndsItsClient)
{
    std::string theirs;
    inThread([&] {
        zel_initialize();
        EXPECT_EQ(navigator_request_events(0), 0);
        theirs = navigator->awaitClient();
    });
    EXPECT_EQ(navigator->nextOfEvents().substr(0, 9 + theirs.size()), "-@events." + theirs);
}

TEST_F(NavigatorEventsTest, ARestartOfTheNavigatorIsNotNoticed)
{
    for (int i = 0; i < 3; ++i) {
        navigator.reset();
        EXPECT_EQ(take(20), nullptr);
        navigator.emplace();
        const std::string again = navigator->awaitClient();
        EXPECT_EQ(again, client);
        ASSERT_EQ(navigator->send(again, "msg::back\n"), 0);
        EXPECT_EQ(describe(take()), "9" + NoParts);
    }
}

TEST_F(NavigatorEventsTest, AChildProcessDoesNotKeepTheClient)
{
    int hold[2];
    ASSERT_EQ(pipe(hold), 0);
    const pid_t child = fork();
    if (child == 0) {
        close(hold[1]);
        char byte;
        _exit(read(hold[0], &byte, 1) == 0 ? 0 : 1);
    }
    close(hold[0]);
    zel_channel_destroy(zel_channel_get_active());
    EXPECT_EQ(navigator->nextOfEvents().substr(0, 9 + client.size()), "-@events." + client);
    close(hold[1]);
    waitpid(child, nullptr, 0);
}

TEST_F(NavigatorEventsTest, ItsDescriptorCannotBeRemovedByTheApplication)
{
    for (int fd = 0; fd < 100; ++fd)
        EXPECT_THAT(zel_remove_fd(fd), FailsWith(ENOENT));
    navigator->send(client, "msg::back\n");
    EXPECT_EQ(describe(take()), "9" + NoParts);
}

double processorSeconds()
{
    rusage usage{};
    getrusage(RUSAGE_THREAD, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

TEST_F(NavigatorEventsTest, TheWatchEndsWithPpsAndCanBeAskedForAnew)
{
    const std::size_t watched = openDescriptors();
    filesystem->kill();
    const double before = processorSeconds();
    EXPECT_EQ(take(300), nullptr);
    EXPECT_LT(processorSeconds() - before, 0.1) << "it keeps the thread busy";
    EXPECT_EQ(openDescriptors(), watched - 1) << "its descriptor is still open";
    EXPECT_THAT(navigator_request_events(0), FailsWith(ENOENT));

    navigator.reset();
    filesystem.reset();
    filesystem.emplace();
    navigator.emplace();
    ASSERT_EQ(navigator_request_events(0), 0);
    client = navigator->awaitClient();
    navigator->send(client, "msg::back\n");
    EXPECT_EQ(describe(take()), "9" + NoParts);
}

TEST_F(NavigatorEventsTest, AUsersDescriptorIsReportedWhenPpsDies)
{
    publish("services/mine", "a::1");
    PpsDescriptor own("services/mine", O_RDONLY);
    ASSERT_EQ(own.read(), "@mine\na::1\n");
    static int reported;
    reported = 0;
    ASSERT_EQ(zel_add_fd(
                  own.get(), ZEL_IO_INPUT,
                  [](int, int ioEvents, void*) {
                      reported |= ioEvents;
                      return 1;
                  },
                  nullptr),
              0);
    EXPECT_EQ(take(0), nullptr);
    EXPECT_EQ(reported, 0);
    filesystem->kill();
    EXPECT_EQ(take(300), nullptr);
    EXPECT_EQ(reported & ZEL_IO_EXCEPT, ZEL_IO_EXCEPT);
}

TEST_F(NavigatorEventsTest, TheWatchEndsWithTheMailboxAndCanBeAskedForAnew)
{
    ASSERT_EQ(unlink("/pps/services/navigator/events"), 0);
    const double before = processorSeconds();
    EXPECT_EQ(take(300), nullptr);
    EXPECT_LT(processorSeconds() - before, 0.1);
    EXPECT_THAT(navigator_request_events(0), FailsWith(ENOENT));
    navigator.reset();
    navigator.emplace();
    ASSERT_EQ(navigator_request_events(0), 0);
    client = navigator->awaitClient();
    navigator->send(client, "msg::back\n");
    EXPECT_EQ(describe(take()), "9" + NoParts);
}

} // namespace
} // namespace tamotest
