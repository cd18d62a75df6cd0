// SPDX-License-Identifier: Apache-2.0
#include "NavigatorServer.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace tamotest {
namespace {

std::string served(const std::string& name)
{
    for (const char* const directory : {"/pps/services", "/pps/services/navigator"})
        mkdir(directory, 0777);
    return "services/navigator/" + name + "?serve";
}

} // namespace

NavigatorServer::NavigatorServer() : m_events(served("events")), m_control(served("control"))
{
    EXPECT_EQ(m_events.error(), 0);
    EXPECT_EQ(m_control.error(), 0);
}

std::string NavigatorServer::next(const PpsDescriptor& mailbox)
{
    return mailbox.waitUntilReadable() ? mailbox.read() : std::string();
}

std::string NavigatorServer::awaitClient()
{
    const std::string heading = "+@events.";
    const std::string message = nextOfEvents();
    EXPECT_EQ(message.compare(0, heading.size(), heading), 0) << message;
    return message.substr(heading.size(), message.find('\n') - heading.size());
}

int NavigatorServer::send(const std::string& client, const std::string& lines) const
{
    return m_events.write("@events." + client + '\n' + lines);
}

std::string NavigatorServer::nextRequest()
{
    std::string message;
    do
        message = next(m_control);
    while (message.compare(0, 2, "+@") == 0 || message.compare(0, 2, "-@") == 0);
    const std::size_t dot = message.find('.');
    const std::size_t end = message.find('\n');
    if (dot >= end || end == std::string::npos)
        return message;
    m_requester = message.substr(dot + 1, end - dot - 1);
    return message.substr(end + 1);
}

} // namespace tamotest
