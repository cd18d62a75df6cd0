// SPDX-License-Identifier: Apache-2.0
#include "PpsTest.h"

#include <sys/epoll.h>
#include <sys/resource.h>
#include <unistd.h>

#include <string>
#include <vector>

namespace tamotest {
namespace {

constexpr std::size_t Many = 1000;

/** Many descriptors at once. */
class Crowd : public PpsTest
{
protected:
    void SetUp() override
    {
        rlimit limit{};
        getrlimit(RLIMIT_NOFILE, &limit);
        limit.rlim_cur = limit.rlim_max;
        setrlimit(RLIMIT_NOFILE, &limit);
        if (limit.rlim_max < Many + 100)
            GTEST_SKIP() << "too few descriptors are allowed";
    }
};

TEST_F(Crowd, AThousandSubscribersAreTold)
{
    publish("o", "a:n:0\n");
    std::vector<PpsDescriptor> subscribers;
    const int epoll = epoll_create1(EPOLL_CLOEXEC);
    for (std::size_t i = 0; i < Many; ++i) {
        subscribers.emplace_back("o", O_RDONLY);
        ASSERT_EQ(subscribers.back().read(), "@o\na:n:0\n");
        epoll_event event{EPOLLIN, {}};
        event.data.u64 = i;
        ASSERT_EQ(epoll_ctl(epoll, EPOLL_CTL_ADD, subscribers.back().get(), &event), 0);
    }
    for (int round = 1; round <= 3; ++round) {
        const std::string line = "a:n:" + std::to_string(round) + '\n';
        publish("o", line);
        for (std::size_t told = 0; told < Many;) {
            epoll_event events[64];
            const int count = epoll_wait(epoll, events, 64, 10'000);
            ASSERT_GT(count, 0) << told << " were told";
            for (int i = 0; i < count; ++i)
                ASSERT_EQ(subscribers[events[i].data.u64].read(), "@o\n" + line);
            told += static_cast<std::size_t>(count);
        }
        epoll_event event;
        EXPECT_EQ(epoll_wait(epoll, &event, 1, 0), 0);
    }
    close(epoll);
}

TEST_F(Crowd, AThousandClientsAreServed)
{
    const PpsDescriptor server("box?serve");
    std::vector<PpsDescriptor> clients;
    for (std::size_t i = 0; i < Many; ++i)
        ASSERT_EQ(clients.emplace_back("box").error(), 0);
    for (std::size_t i = 0; i < Many; ++i)
        ASSERT_EQ(clients[i].write("n:n:" + std::to_string(i) + '\n'), 0);
    for (std::size_t i = 1; i <= Many; ++i)
        ASSERT_THAT(server.read(), ::testing::StartsWith("+@box." + std::to_string(i) + '\n'));
    std::string answers;
    for (std::size_t i = 0; i < Many; ++i) {
        const std::string request = server.read();
        ASSERT_EQ(request, "@box." + std::to_string(i + 1) + "\nn:n:" + std::to_string(i) + '\n');
        answers += request;
    }
    ASSERT_EQ(server.write(answers), 0);
    for (std::size_t i = 0; i < Many; ++i)
        ASSERT_EQ(clients[i].read(), "@box\nn:n:" + std::to_string(i) + '\n');
    clients.clear();
    ASSERT_TRUE(server.waitUntilReadable());
    for (std::size_t i = 1; i <= Many; ++i)
        ASSERT_THAT(server.read(), ::testing::StartsWith("-@box."));
    EXPECT_EQ(server.read(), "");
}

} // namespace
} // namespace tamotest
