// SPDX-License-Identifier: Apache-2.0
#include "ClientTest.h"

#include <algorithm>

#include <signal.h>

namespace boxtest {

Client ClientTest::startClient(const Box& box, std::vector<std::string> arguments) const
{
    arguments.insert(arguments.begin(),
                     {"exec", "--box", box.name, "--", helper("tamo-test-client"), m_mailbox});
    Client client;
    client.process = std::make_unique<Process>(tamoBox(arguments), GetParam());
    EXPECT_TRUE(client.process->printed("started ")) << client.process->errors();
    EXPECT_TRUE(client.process->printed("\n"));
    const std::string& output = client.process->output();
    const std::size_t begin = output.find("started ") + 8;
    client.pid = output.substr(begin, output.find('\n', begin) - begin);
    return client;
}

void ClientTest::have(const Box& box, const Client& client, const std::string& request) const
{
    std::string order = request;
    for (std::size_t at = order.find('\n'); at != std::string::npos; at = order.find('\n'))
        order.replace(at, 1, "\\n");
    EXPECT_THAT(in(box, {"pps", "set", "orders-" + client.pid, "order::" + order}), succeeds());
}

void ClientTest::killClient(const Box& box, Client& client) const
{
    EXPECT_THAT(in(box, {"exec", "--", "kill", "-9", client.pid}), succeeds());
    EXPECT_EQ(client.process->wait(), 128 + SIGKILL);
}

std::string ClientTest::outputWith(const Box& box, const std::vector<std::string>& command,
                                   const std::string& text) const
{
    std::string shown;
    EXPECT_TRUE(waitUntil([&] {
        shown = in(box, command).output;
        return shown.find(text) != std::string::npos;
    })) << "it never was: "
        << text << "\nbut: " << shown;
    return shown;
}

std::unique_ptr<Process> ClientTest::sendMany(const Box& box, const std::string& request,
                                              int count) const
{
    const std::string script = "exec 3<>/pps/" + m_mailbox + "; for i in $(seq " +
                               std::to_string(count) + "); do until printf '" + request +
                               "' $i >&3; do :; done 2>/dev/null; done; echo sent; exec sleep 1h";
    return std::make_unique<Process>(tamoBox({"exec", "--box", box.name, "--", "sh", "-c", script}),
                                     GetParam());
}

void ClientTest::checkGarbage(const std::string& service, const std::vector<Garbage>& rows,
                              const std::vector<std::string>& command) const
{
    // A box says so many lines in a second and counts the others.
    constexpr std::size_t linesOfABox = 6;
    for (std::size_t first = 0; first < rows.size(); first += linesOfABox) {
        const Box box = startIdle();
        const std::string before = in(box, command).output;
        const Client client = startClient(box);
        for (std::size_t i = first; i < std::min(first + linesOfABox, rows.size()); ++i) {
            const auto& [request, complaint] = rows[i];
            have(box, client, request);
            EXPECT_TRUE(box.launcher->complained(
                "tamo-box: " + service + ": a request of process " + client.pid +
                " (tamo-test-clien) to " + m_mailbox + " has no effect: " + complaint))
                << request << '\n'
                << box.launcher->errors();
        }
        EXPECT_EQ(in(box, command).output, before);
    }
}

std::string ClientTest::request(const std::string& message, const std::string& dat)
{
    return "msg::" + message + "\ndat:json:" + dat + '\n';
}

int occurrences(const std::string& text, const std::string& part)
{
    int count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

} // namespace boxtest
