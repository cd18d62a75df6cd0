// SPDX-License-Identifier: Apache-2.0
#include "NetStatusTest.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace tamotest {
namespace {

/** All parts of an event, the code first. */
std::string describe(const zel_event_t* event)
{
    if (!event)
        return "no event";
    EXPECT_EQ(zel_event_get_domain(event), netstatus_get_domain());
    EXPECT_EQ(zel_event_get_payload(event), nullptr);
    return std::to_string(zel_event_get_code(event)) +
           (netstatus_event_get_availability(event) ? " up" : " down") + " http " +
           textOf(netstatus_event_get_http_proxy_host(event)) + ' ' +
           std::to_string(netstatus_event_get_http_proxy_port(event)) +
           (netstatus_event_get_http_proxy_login_required(event) ? " login" : "") + " https " +
           textOf(netstatus_event_get_https_proxy_host(event)) + ' ' +
           std::to_string(netstatus_event_get_https_proxy_port(event)) + " ftp " +
           textOf(netstatus_event_get_ftp_proxy_host(event)) + ' ' +
           std::to_string(netstatus_event_get_ftp_proxy_port(event));
}

const std::string NoProxies = " http  0 https  0 ftp  0";

class NetStatusEventsTest : public NetStatusTest
{
protected:
    void SetUp() override
    {
        NetStatusTest::SetUp();
        ASSERT_EQ(netstatus_request_events(0), 0);
        client = network->awaitClient();
        ASSERT_FALSE(client.empty());
    }

    std::string client;
};

TEST_F(NetStatusEventsTest, CarryTheWholeState)
{
    ASSERT_EQ(network->send(client, "msg::info\navailable:b:true\n"), 0);
    EXPECT_EQ(describe(take()), "1 up" + NoProxies);
    ASSERT_EQ(network->send(client,
                            "msg::info\navailable:b:false\nhttpProxyHost::a.b\nhttpProxyPort:n:1\n"
                            "httpProxyLoginRequired:b:true\nhttpsProxyHost::\xC3\xA4\n"
                            "httpsProxyPort:n:65535\nftpProxyHost::::1\nftpProxyPort:n:21\nx::y\n"),
              0);
    EXPECT_EQ(describe(take()), "1 down http a.b 1 login https \xC3\xA4 65535 ftp ::1 21");
}

TEST_F(NetStatusEventsTest, OfAnyCodeCanBeTriedOut)
{
    for (const int code : {0, 2, -1, 2147483647}) {
        ASSERT_EQ(network->send(client, "msg::event\navailable:b:true\ncode:n:" +
                                            std::to_string(code) + '\n'),
                  0);
        EXPECT_EQ(describe(take()), std::to_string(code) + " up" + NoProxies);
    }
}

TEST_F(NetStatusEventsTest, OfOthersHaveNothingOfTheNetwork)
{
    network->send(client, "msg::event\ncode:n:2\n");
    const zel_event_t* const unknown = take();
    ASSERT_NE(unknown, nullptr);
    errno = 0;
    EXPECT_FALSE(netstatus_event_get_availability(unknown));
    EXPECT_EQ(errno, EINVAL) << "it does not say so";

    zel_event_t* own = nullptr;
    const zel_event_payload_t payload{1, 2, 3};
    ASSERT_EQ(zel_event_create(&own, netstatus_get_domain(), NETSTATUS_INFO, &payload, nullptr), 0);
    for (const zel_event_t* const event :
         {static_cast<const zel_event_t*>(own), static_cast<const zel_event_t*>(nullptr)}) {
        for (const auto getter :
             {netstatus_event_get_availability, netstatus_event_get_http_proxy_login_required}) {
            errno = 0;
            EXPECT_FALSE(getter(event));
            EXPECT_EQ(errno, EINVAL);
        }
        for (const auto getter :
             {netstatus_event_get_http_proxy_host, netstatus_event_get_https_proxy_host,
              netstatus_event_get_ftp_proxy_host}) {
            errno = 0;
            EXPECT_EQ(getter(event), nullptr);
            EXPECT_EQ(errno, EINVAL);
        }
        for (const auto getter :
             {netstatus_event_get_http_proxy_port, netstatus_event_get_https_proxy_port,
              netstatus_event_get_ftp_proxy_port})
            EXPECT_THAT(getter(event), FailsWith(EINVAL));
    }
    zel_event_destroy(own);
}

TEST_F(NetStatusEventsTest, WhatCannotBeReadIsLeftOutAndSaidWhereWanted)
{
    std::vector<std::string> odd = {
        "other::x\n",
        "msg::\n",
        "msg::Info\n",
        "msg::info\n",
        "msg:n:1\n",
        "msg::event\n",
        "msg::event\ncode::1\n",
        "msg::event\ncode:n:1\n",
        "msg:json:null\n",
        "-msg\n",
        "msg::event\ncode:n:1.5\n",
        "msg::info\n-available\n",
    };
    for (const std::string& lines : MalformedStates)
        odd.push_back("msg::info\n" + lines);
    for (const unsigned verbosity : {0U, 1U}) {
        zel_set_verbosity(verbosity);
        for (const std::string& lines : odd) {
            ::testing::internal::CaptureStderr();
            ASSERT_EQ(network->send(client, lines), 0) << lines;
            ASSERT_EQ(network->send(client, "msg::info\navailable:b:true\n"), 0);
            EXPECT_EQ(describe(take()), "1 up" + NoProxies) << lines;
            const std::string said = ::testing::internal::GetCapturedStderr();
            EXPECT_EQ(said.find("left out") != std::string::npos, verbosity == 1) << lines << said;
        }
    }
    zel_set_verbosity(0);
}

TEST_F(NetStatusEventsTest, ComeInOrderAndNoneIsLeftOut)
{
    constexpr int Batch = 100; // less than a client's queue holds
    for (int i = 0; i < 10; ++i) {
        for (int j = 0; j < Batch; ++j)
            ASSERT_EQ(network->send(client, j % 2 == 0 ? "msg::info\navailable:b:true\n"
                                                       : "msg::info\navailable:b:false\n"),
                      0);
        for (int j = 0; j < Batch; ++j)
            ASSERT_EQ(describe(take()), (j % 2 == 0 ? "1 up" : "1 down") + NoProxies);
    }
}

TEST_F(NetStatusEventsTest, AskingAgainForTheSameChannelChangesNothing)
{
    const std::size_t before = openDescriptors();
    EXPECT_EQ(netstatus_request_events(0), 0);
    EXPECT_EQ(openDescriptors(), before);
}

TEST_F(NetStatusEventsTest, ARestartOfTheServiceIsNotNoticed)
{
    for (int i = 0; i < 3; ++i) {
        network.reset();
        EXPECT_EQ(take(20), nullptr);
        network.emplace();
        EXPECT_EQ(network->awaitClient(), client);
        ASSERT_EQ(network->send(client, "msg::info\navailable:b:true\n"), 0);
        EXPECT_EQ(describe(take()), "1 up" + NoProxies);
    }
}

} // namespace
} // namespace tamotest
