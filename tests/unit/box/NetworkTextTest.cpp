// SPDX-License-Identifier: Apache-2.0
#include "cli/NetworkText.h"

#include <gmock/gmock.h>

using namespace tamobox;

namespace {

TEST(NetworkTextTest, ProxyIsAHostAndAPort)
{
    for (const auto& [text, host, port] :
         {std::tuple("a.b:80", "a.b", 80), std::tuple("[::1]:65535", "::1", 65535),
          std::tuple("none", "", 0), std::tuple("[a]:1", "a", 1)}) {
        const std::optional<Proxy> proxy = parseProxy(text);
        ASSERT_TRUE(proxy) << text;
        EXPECT_EQ(proxy->host, host);
        EXPECT_EQ(proxy->port, port);
    }
}

TEST(NetworkTextTest, AnythingElseIsNone)
{
    for (const char* const text :
         {"", ":", "a", "a:", ":80", "a:0", "a:65536", "a:-1", "a: 80", "a:80 ", "a:8x", "::1:80",
          "[]:80", "[::1:80", "::1]:80", "a:99999999999", "None"})
        EXPECT_FALSE(parseProxy(text)) << text;
}

TEST(NetworkTextTest, IsWrittenWithoutWhatATerminalObeys)
{
    NetworkState state;
    state.ftp = {"a\x1b[2J", 21};
    EXPECT_EQ(networkText(state), "network      unknown\nhttp proxy   none\nhttps proxy  none\n"
                                  "ftp proxy    a?[2J:21\n");
    EXPECT_EQ(networkToJson(state),
              "{\"available\":null,\"proxies\":{\"http\":null,\"https\":null,\"ftp\":{\"host\":"
              "\"a\\u001B[2J\",\"port\":21}},\"httpLoginRequired\":false}");
}

} // namespace
