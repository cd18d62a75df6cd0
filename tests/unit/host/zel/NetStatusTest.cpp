// SPDX-License-Identifier: Apache-2.0
#include "NetStatusTest.h"

#include <sys/stat.h>

namespace tamotest {

static std::string served()
{
    for (const char* const directory : {"/pps/services", "/pps/services/network"})
        mkdir(directory, 0777);
    return "services/network/events?serve";
}

NetworkServer::NetworkServer() : m_events(served())
{
    EXPECT_EQ(m_events.error(), 0);
}

std::string NetworkServer::awaitClient()
{
    const std::string heading = "+@events.";
    std::string message;
    do
        message = m_events.waitUntilReadable() ? m_events.read() : std::string();
    while (message.compare(0, 2, "-@") == 0);
    EXPECT_EQ(message.compare(0, heading.size(), heading), 0) << message;
    return message.substr(heading.size(), message.find('\n') - heading.size());
}

int NetworkServer::send(const std::string& client, const std::string& lines) const
{
    return m_events.write("@events." + client + '\n' + lines);
}

const std::vector<std::string> MalformedStates = {
    "available::true\n",
    "available:n:1\n",
    "available:json:null\n",
    "available:json:{\"available\":true}\n",
    "available:b:true\nhttpProxyHost:n:1\nhttpProxyPort:n:1\n",
    "available:b:true\nhttpProxyHost:json:null\n",
    "available:b:true\nhttpProxyHost::a\n",
    "available:b:true\nhttpProxyHost::a\nhttpProxyPort:n:0\n",
    "available:b:true\nhttpProxyHost::a\nhttpProxyPort:n:65536\n",
    "available:b:true\nhttpProxyHost::a\nhttpProxyPort:n:-1\n",
    "available:b:true\nhttpProxyHost::a\nhttpProxyPort:n:80.5\n",
    "available:b:true\nhttpProxyHost::a\nhttpProxyPort::80\n",
    "available:b:true\nhttpProxyHost::a\nhttpProxyPort:n:1e300\n",
    "available:b:true\nhttpsProxyPort:n:80\n",
    "available:b:true\nftpProxyHost:b:true\n",
    "available:b:true\nhttpProxyLoginRequired:n:1\n",
    "available:b:true\nhttpProxyLoginRequired:json:null\n",
};

} // namespace tamotest
