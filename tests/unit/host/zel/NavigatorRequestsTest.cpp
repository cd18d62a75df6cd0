// SPDX-License-Identifier: Apache-2.0
#include "NavigatorTest.h"

#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <memory>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace tamotest {
namespace {

class NavigatorRequestsTest : public NavigatorTest
{
protected:
    std::string next() { return navigator->nextRequest(); }
};

TEST_F(NavigatorRequestsTest, EachIsOneMessage)
{
    char* error = nullptr;
    EXPECT_EQ(navigator_invoke("http://a/\xC3\xA4", &error), 0);
    EXPECT_EQ(error, nullptr);
    EXPECT_EQ(next(), "msg::invoke\nurl::http://a/\xC3\xA4\n");
    EXPECT_EQ(navigator_open_file("/a/b", nullptr), 0);
    EXPECT_EQ(next(), "msg::openFile\npath::/a/b\n");
    EXPECT_EQ(navigator_add_uri("/i", "l", "c", "u", nullptr), 0);
    EXPECT_EQ(next(), "msg::addUri\nicon::/i\nlabel::l\ncategory::c\nurl::u\n");
    EXPECT_EQ(navigator_add_uri("/i", "", nullptr, "u", nullptr), 0);
    EXPECT_EQ(next(), "msg::addUri\nicon::/i\nlabel::\ncategory::\nurl::u\n");
    EXPECT_EQ(navigator_extend_timeout(30'000, nullptr), 0);
    EXPECT_EQ(next(), "msg::extendTimeout\nmilliseconds:n:30000\n");
    EXPECT_EQ(navigator_request_swipe_start(), 0);
    EXPECT_EQ(next(), "msg::swipeStart\nwanted:b:true\n");
    EXPECT_EQ(navigator_stop_swipe_start(), 0);
    EXPECT_EQ(next(), "msg::swipeStart\nwanted:b:false\n");
    EXPECT_EQ(navigator_rotation_lock(true), 0);
    EXPECT_EQ(next(), "msg::rotationLock\nlocked:b:true\n");
    EXPECT_EQ(navigator_rotation_lock(false), 0);
    EXPECT_EQ(next(), "msg::rotationLock\nlocked:b:false\n");
    EXPECT_EQ(navigator_set_window_angle(180), 0);
    EXPECT_EQ(next(), "msg::setWindowAngle\nangle:n:180\n");
    EXPECT_EQ(navigator_set_close_prompt("t\n", "m"), 0);
    EXPECT_EQ(next(), "msg::closePrompt\ntitle::t\\n\nmessage::m\n");
    EXPECT_EQ(navigator_clear_close_prompt(), 0);
    EXPECT_EQ(next(), "msg::closePrompt\n");
    EXPECT_EQ(navigator_set_badge(NAVIGATOR_BADGE_SPLAT), 0);
    EXPECT_EQ(next(), "msg::badge\nbadge:n:0\n");
    EXPECT_EQ(navigator_clear_badge(), 0);
    EXPECT_EQ(next(), "msg::badge\n");
    EXPECT_EQ(navigator_orientation_check_response_id("x", true), 0);
    EXPECT_EQ(next(), "msg::orientationCheckResponse\nid::x\naccept:b:true\n");
    EXPECT_EQ(navigator_orientation_check_response_id("", false), 0);
    EXPECT_EQ(next(), "msg::orientationCheckResponse\nid::\naccept:b:false\n");
    EXPECT_EQ(navigator_done_orientation_id("y"), 0);
    EXPECT_EQ(next(), "msg::orientationDone\nid::y\n");
}

TEST_F(NavigatorRequestsTest, ArgumentsAreChecked)
{
    char* error = nullptr;
    const char* const notUtf8 = "\xFF";
    for (const char* const text : {static_cast<const char*>(nullptr), "", notUtf8}) {
        EXPECT_THAT(navigator_invoke(text, &error), FailsWith(EINVAL));
        ASSERT_NE(error, nullptr);
        EXPECT_THAT(error, ::testing::HasSubstr("UTF-8"));
        zel_free(error);
        EXPECT_THAT(navigator_invoke(text, nullptr), FailsWith(EINVAL));
        EXPECT_THAT(navigator_open_file(text, nullptr), FailsWith(EINVAL));
        EXPECT_THAT(navigator_add_uri(text, "l", "c", "u", nullptr), FailsWith(EINVAL));
        EXPECT_THAT(navigator_add_uri("/i", "l", "c", text, nullptr), FailsWith(EINVAL));
    }
    EXPECT_THAT(navigator_add_uri("/i", nullptr, "c", "u", nullptr), FailsWith(EINVAL));
    EXPECT_THAT(navigator_add_uri("/i", "l", notUtf8, "u", nullptr), FailsWith(EINVAL));
    for (const int milliseconds : {0, -1, 30'001})
        EXPECT_THAT(navigator_extend_timeout(milliseconds, nullptr), FailsWith(EINVAL));
    for (const int angle : {-90, 1, 45, 360}) {
        EXPECT_THAT(navigator_set_orientation(angle, nullptr), FailsWith(EINVAL));
        EXPECT_THAT(navigator_set_window_angle(angle), FailsWith(EINVAL));
    }
    EXPECT_THAT(navigator_set_close_prompt(nullptr, "m"), FailsWith(EINVAL));
    EXPECT_THAT(navigator_set_close_prompt("t", nullptr), FailsWith(EINVAL));
    EXPECT_THAT(navigator_orientation_check_response_id(nullptr, true), FailsWith(EINVAL));
    EXPECT_THAT(navigator_orientation_check_response_id(notUtf8, true), FailsWith(EINVAL));
    EXPECT_THAT(navigator_done_orientation_id(nullptr), FailsWith(EINVAL));
    EXPECT_THAT(navigator_orientation_check_response(nullptr, true), FailsWith(EINVAL));
    EXPECT_THAT(navigator_done_orientation(nullptr), FailsWith(EINVAL));
    const std::string tooLong(2 << 20, 'x');
    EXPECT_THAT(navigator_invoke(tooLong.c_str(), nullptr), FailsWith(EFBIG));
    navigator_clear_badge();
    EXPECT_EQ(next(), "msg::badge\n") << "nothing of the others was sent";
}

TEST_F(NavigatorRequestsTest, RelativePathsBeginAtTheWorkingDirectory)
{
    const std::unique_ptr<char, void (*)(void*)> directory(getcwd(nullptr, 0), &std::free);
    navigator_open_file("a/b", nullptr);
    EXPECT_EQ(next(), "msg::openFile\npath::" + std::string(directory.get()) + "/a/b\n");
}

TEST_F(NavigatorRequestsTest, OrientationRequestsHaveIdsOfTheirOwn)
{
    std::set<std::string> ids;
    for (int i = 0; i < 3; ++i) {
        char* id = nullptr;
        ASSERT_EQ(navigator_set_orientation(90, &id), 0);
        ASSERT_NE(id, nullptr);
        EXPECT_TRUE(ids.insert(id).second);
        EXPECT_EQ(next(), "msg::setOrientation\nangle:n:90\nid::" + std::string(id) + '\n');
        zel_free(id);
    }
    EXPECT_EQ(navigator_set_orientation(0, nullptr), 0);
    EXPECT_THAT(next(), ::testing::StartsWith("msg::setOrientation\nangle:n:0\nid::"));
}

TEST_F(NavigatorRequestsTest, EventsAreAnsweredUnderTheirId)
{
    ASSERT_EQ(navigator_request_events(0), 0);
    const std::string client = navigator->awaitClient();
    navigator->send(client, "msg::orientationCheck\nangle:n:90\nid::c7\n");
    EXPECT_EQ(navigator_orientation_check_response(take(), true), 0);
    EXPECT_EQ(next(), "msg::orientationCheckResponse\nid::c7\naccept:b:true\n");
    navigator->send(client, "msg::orientation\nangle:n:90\nid::o8\n");
    EXPECT_EQ(navigator_done_orientation(take()), 0);
    EXPECT_EQ(next(), "msg::orientationDone\nid::o8\n");
    navigator->send(client, "msg::orientation\nangle:n:90\n");
    EXPECT_THAT(navigator_done_orientation(take()), FailsWith(EINVAL));
}

TEST_F(NavigatorRequestsTest, LeaveErrnoAlone)
{
    errno = E2BIG;
    EXPECT_EQ(navigator_clear_badge(), 0);
    EXPECT_EQ(errno, E2BIG);
}

TEST_F(NavigatorRequestsTest, WhileNobodyServesTheyFailWithEpipeAndWorkAfterwards)
{
    navigator_clear_badge();
    for (int i = 0; i < 3; ++i) {
        navigator.reset();
        char* error = nullptr;
        char* id = nullptr;
        EXPECT_THAT(navigator_invoke("u", &error), FailsWith(EPIPE));
        EXPECT_STREQ(error, "The navigator is not running.");
        zel_free(error);
        EXPECT_THAT(navigator_set_orientation(90, &id), FailsWith(EPIPE));
        EXPECT_EQ(id, nullptr);
        navigator.emplace();
        EXPECT_EQ(navigator_rotation_lock(true), 0);
        EXPECT_EQ(next(), "msg::rotationLock\nlocked:b:true\n");
    }
}

TEST_F(NavigatorRequestsTest, FailWithEnoentWithoutPpsAndWorkWithTheNextOne)
{
    navigator_clear_badge();
    filesystem->kill();
    char* error = nullptr;
    EXPECT_THAT(navigator_invoke("u", &error), FailsWith(ENOENT));
    EXPECT_THAT(error, ::testing::HasSubstr("no navigator"));
    zel_free(error);
    navigator.reset();
    filesystem.reset();
    EXPECT_THAT(navigator_clear_badge(), FailsWith(ENOENT));
    filesystem.emplace();
    EXPECT_THAT(navigator_clear_badge(), FailsWith(ENOENT));
    navigator.emplace();
    EXPECT_EQ(navigator_clear_badge(), 0);
    EXPECT_EQ(next(), "msg::badge\n");
}

TEST_F(NavigatorRequestsTest, ADescriptorOfADeadPpsIsReplacedAtOnce)
{
    ASSERT_EQ(navigator_clear_badge(), 0);
    filesystem->kill();
    navigator.reset();
    filesystem.reset();
    filesystem.emplace();
    navigator.emplace();
    EXPECT_EQ(navigator_clear_badge(), 0);
    EXPECT_EQ(next(), "msg::badge\n");
}

TEST_F(NavigatorRequestsTest, AMailboxThatWasRemovedIsReplacedByTheNextOne)
{
    ASSERT_EQ(navigator_clear_badge(), 0);
    ASSERT_EQ(unlink("/pps/services/navigator/control"), 0);
    EXPECT_THAT(navigator_clear_badge(), FailsWith(ENOENT));
    navigator.reset();
    navigator.emplace();
    EXPECT_EQ(navigator_clear_badge(), 0);
    EXPECT_EQ(next(), "msg::badge\n");
}

TEST_F(NavigatorRequestsTest, TooManyUnreadOnesFailWithEagain)
{
    int sent = 0;
    while (sent < 10'000 && navigator_clear_badge() == 0)
        ++sent;
    EXPECT_EQ(errno, EAGAIN);
    EXPECT_EQ(sent, 128);
    char* error = nullptr;
    EXPECT_THAT(navigator_invoke("u", &error), FailsWith(EAGAIN));
    EXPECT_NE(error, nullptr);
    zel_free(error);
    for (int i = 0; i < sent; ++i)
        EXPECT_EQ(next(), "msg::badge\n");
    EXPECT_EQ(navigator_rotation_lock(true), 0);
    EXPECT_EQ(next(), "msg::rotationLock\nlocked:b:true\n");
}

TEST_F(NavigatorRequestsTest, OfAllThreadsGoThroughOneClientInTheOrderOfEach)
{
    constexpr int Threads = 4;
    constexpr int Requests = 30;
    std::vector<std::thread> threads;
    for (int i = 0; i < Threads; ++i) {
        threads.emplace_back([i] {
            for (int j = 0; j < Requests; ++j) {
                const std::string id = std::to_string(i) + '.' + std::to_string(j);
                EXPECT_EQ(navigator_done_orientation_id(id.c_str()), 0);
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    std::vector<int> expected(Threads, 0);
    std::set<std::string> requesters;
    for (int i = 0; i < Threads * Requests; ++i) {
        const std::string request = next();
        const std::string id = request.substr(request.find("id::") + 4);
        int& count = expected.at(static_cast<std::size_t>(id[0] - '0'));
        EXPECT_EQ(id.substr(2), std::to_string(count++) + '\n');
        requesters.insert(navigator->requester());
    }
    EXPECT_EQ(requesters.size(), 1U);
}

TEST_F(NavigatorRequestsTest, OfAChildProcessGoThroughItsOwnClient)
{
    navigator_clear_badge();
    next();
    const std::string own = navigator->requester();
    EXPECT_EQ(inChild([] { return navigator_rotation_lock(true); }), 0);
    EXPECT_EQ(next(), "msg::rotationLock\nlocked:b:true\n");
    EXPECT_NE(navigator->requester(), own);
    navigator_clear_badge();
    next();
    EXPECT_EQ(navigator->requester(), own);
}

TEST_F(NavigatorRequestsTest, AChildOfAProcessThatIsSendingIsNotHeldUp)
{
    std::atomic<bool> ends{false};
    std::thread sender([&] {
        while (!ends)
            navigator_clear_badge();
    });
    for (int i = 0; i < 30; ++i) {
        EXPECT_EQ(inChild([] {
                      alarm(20);
                      return navigator_clear_badge() == 0 || errno == EAGAIN ? 0 : 1;
                  }),
                  0);
    }
    ends = true;
    sender.join();
}

} // namespace
} // namespace tamotest
