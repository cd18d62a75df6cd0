// SPDX-License-Identifier: Apache-2.0
#include "NetStatusTest.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace tamotest {
namespace {

class NetStatusQueriesTest : public NetStatusTest
{
};

TEST_F(NetStatusQueriesTest, AvailabilityIsWhatIsPublishedNow)
{
    for (const bool isAvailable : {true, false, true}) {
        publish(Status, std::string("available:b:") + (isAvailable ? "true" : "false"));
        bool available = !isAvailable;
        errno = E2BIG;
        EXPECT_EQ(netstatus_get_availability(&available), 0);
        EXPECT_EQ(errno, E2BIG);
        EXPECT_EQ(available, isAvailable);
    }
}

TEST_F(NetStatusQueriesTest, AnyThreadMayAsk)
{
    publish(Status, "available:b:true");
    inThread([] {
        bool available = false;
        EXPECT_EQ(netstatus_get_availability(&available), 0);
        EXPECT_TRUE(available);
    });
}

TEST_F(NetStatusQueriesTest, ProxiesAreWhatIsPublishedNow)
{
    publish(Status, "available:b:true\nhttpProxyHost::a.b\nhttpProxyPort:n:80\n"
                    "httpProxyLoginRequired:b:true\nftpProxyHost::::1\nftpProxyPort:n:65535\n");
    netstatus_proxy_details_t* details = nullptr;
    ASSERT_EQ(netstatus_get_proxy_details(&details), 0);
    EXPECT_TRUE(details->http_proxy_login_required);
    EXPECT_STREQ(details->http_proxy_host, "a.b");
    EXPECT_EQ(details->http_proxy_port, 80);
    EXPECT_STREQ(details->https_proxy_host, "");
    EXPECT_EQ(details->https_proxy_port, 0);
    EXPECT_STREQ(details->ftp_proxy_host, "::1");
    EXPECT_EQ(details->ftp_proxy_port, 65535);
    netstatus_free_proxy_details(&details);
    EXPECT_EQ(details, nullptr);
}

TEST_F(NetStatusQueriesTest, AStateOfAnyLengthIsRead)
{
    const std::string host(1'000'000, 'x');
    publish(Status, "available:b:true\nhttpProxyHost::" + host + "\nhttpProxyPort:n:80\n");
    bool available = false;
    EXPECT_EQ(netstatus_get_availability(&available), 0);
    netstatus_proxy_details_t* details = nullptr;
    ASSERT_EQ(netstatus_get_proxy_details(&details), 0);
    EXPECT_EQ(details->http_proxy_host, host);
    netstatus_free_proxy_details(&details);
}

TEST_F(NetStatusQueriesTest, IsEnoentWhereNothingIsPublished)
{
    bool available = true;
    netstatus_proxy_details_t junk{};
    netstatus_proxy_details_t* details = &junk;
    const auto expectNothing = [&] {
        EXPECT_THAT(netstatus_get_availability(&available), FailsWith(ENOENT));
        EXPECT_TRUE(available) << "it is left as it was";
    };
    expectNothing();
    EXPECT_THAT(netstatus_get_proxy_details(&details), FailsWith(ENOENT));
    EXPECT_EQ(details, nullptr);
    close(open("/pps/services/network/status", O_WRONLY | O_CREAT | O_CLOEXEC, 0644));
    expectNothing();
    publish(Status, "other::x");
    expectNothing();
    EXPECT_EQ(netstatus_get_proxy_details(&details), 0) << "there are none";
    netstatus_free_proxy_details(&details);
    network.reset();
    filesystem.reset(); // no /pps at all
    expectNothing();
}

TEST_F(NetStatusQueriesTest, IsEbadmsgWhereItIsOfAnotherKind)
{
    for (const std::string& lines : MalformedStates) {
        network.reset();
        filesystem.reset();
        filesystem.emplace();
        publish(Status, lines);
        bool available = true;
        EXPECT_THAT(netstatus_get_availability(&available), FailsWith(EBADMSG)) << lines;
        EXPECT_TRUE(available);
        netstatus_proxy_details_t* details = nullptr;
        EXPECT_THAT(netstatus_get_proxy_details(&details), FailsWith(EBADMSG)) << lines;
        EXPECT_EQ(details, nullptr);
    }
}

TEST_F(NetStatusQueriesTest, NullIsRefusedOrAllowed)
{
    EXPECT_THAT(netstatus_get_availability(nullptr), FailsWith(EINVAL));
    EXPECT_THAT(netstatus_get_proxy_details(nullptr), FailsWith(EINVAL));
    netstatus_proxy_details_t* details = nullptr;
    netstatus_free_proxy_details(&details);
    netstatus_free_proxy_details(nullptr);
}

TEST_F(NetStatusQueriesTest, LeaveNoDescriptors)
{
    publish(Status, "available:b:true");
    const std::size_t before = openDescriptors();
    for (int i = 0; i < 10; ++i) {
        bool available = false;
        netstatus_get_availability(&available);
        netstatus_proxy_details_t* details = nullptr;
        netstatus_get_proxy_details(&details);
        netstatus_free_proxy_details(&details);
    }
    EXPECT_EQ(openDescriptors(), before);
}

TEST_F(NetStatusQueriesTest, IsEaccesWhereItMayNotBeRead)
{
    publish(Status, "available:b:true");
    ASSERT_EQ(chmod("/pps/services/network/status", 0), 0);
    EXPECT_EQ(inChild([] {
                  if (geteuid() == 0 && setuid(65534) != 0)
                      return 1;
                  bool available = false;
                  return netstatus_get_availability(&available) == -1 && errno == EACCES ? 0 : 2;
              }),
              0);
}

} // namespace
} // namespace tamotest
