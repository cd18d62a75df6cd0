// SPDX-License-Identifier: Apache-2.0
#include "services/network/NetworkState.h"

#include "common/Failure.h"

#include <gmock/gmock.h>

#include <string>

using namespace tamobox;
using namespace testing;

namespace {

NetworkState read(const std::string& lines)
{
    return NetworkState::fromMessage("@status\n" + lines);
}

std::string complaintOf(const std::string& lines)
{
    try {
        read(lines);
        return "none";
    } catch (const Failure& failure) {
        return failure.what();
    }
}

TEST(NetworkStateTest, NothingIsKnownAtFirst)
{
    const NetworkState state = read("other::x\n");
    EXPECT_FALSE(state.isAvailable);
    EXPECT_EQ(state.http.host, "");
    EXPECT_EQ(state.ftp.port, 0);
    EXPECT_FALSE(state.isHttpLoginRequired);
}

TEST(NetworkStateTest, WhatIsWrittenIsReadAgain)
{
    NetworkState state;
    state.isAvailable = true;
    state.http = {"a.b", 1};
    state.https = {"::1", 65535};
    state.isHttpLoginRequired = true;
    MessageWriter message;
    state.write(message.object("status"));
    const NetworkState again = NetworkState::fromMessage(message.text());
    EXPECT_EQ(again.isAvailable, true);
    EXPECT_EQ(again.http.host, "a.b");
    EXPECT_EQ(again.http.port, 1);
    EXPECT_EQ(again.https.host, "::1");
    EXPECT_EQ(again.https.port, 65535);
    EXPECT_EQ(again.ftp.host, "");
    EXPECT_EQ(again.ftp.port, 0);
    EXPECT_TRUE(again.isHttpLoginRequired);
}

TEST(NetworkStateTest, WhatIsMalformedIsSaidWithItsPlace)
{
    const struct
    {
        const char* lines;
        const char* complaint;
    } rows[] = {
        {"available::true\n", "available must be true or false"},
        {"available:json:null\n", "available must be true or false"},
        {"httpProxyLoginRequired:n:1\n", "httpProxyLoginRequired must be true or false"},
        {"httpsProxyHost:n:1\n", "httpsProxyHost must be a text"},
        {"httpsProxyHost::a\n", "httpsProxyPort must be above 0, since there is a host"},
        {"ftpProxyPort:n:21\n", "ftpProxyPort must be 0, or there must be a host"},
        {"ftpProxyHost::a\nftpProxyPort:n:65536\n",
         "ftpProxyPort must be a whole number from 0 to 65535"},
        {"ftpProxyHost::a\nftpProxyPort:n:0.5\n",
         "ftpProxyPort must be a whole number from 0 to 65535"},
        {"nonsense\n", "line 2 of the message is malformed"},
    };
    for (const auto& row : rows)
        EXPECT_THAT(complaintOf(row.lines),
                    StartsWith(std::string("/pps/services/network/status: ") + row.complaint));
    EXPECT_THROW(NetworkState::fromMessage("@other\n"), Failure);
}

TEST(NetworkStateTest, MalformedAttributesChangeNothing)
{
    NetworkState state;
    state.ftp = {"f", 21};
    MessageReader message("@x\navailable:b:true\nhttpProxyHost::a\n");
    ASSERT_TRUE(message.enter("@x"));
    EXPECT_THROW(state.read(message), Failure);
    EXPECT_FALSE(state.isAvailable);
    EXPECT_EQ(state.http.host, "");
    EXPECT_EQ(state.ftp.host, "f");
}

} // namespace
