// SPDX-License-Identifier: Apache-2.0
// tamo-test-navigated [OPTION...] [REQUEST...]: plays an application that the navigator knows. It
// asks for events, sends its requests, lines with commas between ("msg::badge,badge:n:0"), prints
// "started PID", and from then on each event on a line, likewise. Being asked whether it turns, it
// accepts; told that it is turned, it is done; told to exit, it ends with 3. An event with the data
// "send LINES" makes it send a request, one with "close" or "open" close or open the mailbox of
// events. The options make it behave differently:
//
//   refuse        refuses to turn         ignore=MSG    does nothing about an event
//   die=MSG       is killed by an event   leave=MSG     closes the mailbox of events on an event
//   twice         answers twice           foreign       ... with ids that nobody asked about
//   deaf          reads no event          channels=N    opens the mailbox of events so many times
//   extend=MS     asks for more time when it is told to exit, and stays
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>
#include <vector>

namespace {

std::map<std::string, std::string> options;
std::vector<int> channels;
int control = -1;

bool isSet(const std::string& option)
{
    return options.count(option) != 0;
}

void openEvents()
{
    channels.push_back(open("/pps/services/navigator/events", O_RDWR | O_NONBLOCK | O_CLOEXEC));
}

void closeEvents()
{
    for (const int channel : channels)
        close(channel);
    channels.clear();
}

void send(std::string lines)
{
    std::replace(lines.begin(), lines.end(), ',', '\n');
    if (write(control, lines.data(), lines.size()) != static_cast<ssize_t>(lines.size()))
        std::perror("request");
}

void print(const std::string& line)
{
    std::printf("%s\n", line.c_str());
    std::fflush(stdout);
}

/** The attribute of a message without its line ends, which are commas. */
std::string valueOf(const std::string& message, const std::string& name)
{
    const std::size_t begin = message.find(',' + name + ':');
    if (begin == std::string::npos)
        return {};
    const std::size_t value = message.find(':', begin + name.size() + 2) + 1;
    // What is last may hold commas itself.
    return name == "data" ? message.substr(value)
                          : message.substr(value, message.find(',', value) - value);
}

void answer(const std::string& request, const std::string& id)
{
    if (isSet("foreign"))
        send(request + ",id::nobody-asked");
    send(request + ",id::" + id);
    if (isSet("twice"))
        send(request + ",id::" + id);
}

void obey(const std::string& order)
{
    if (order == "close")
        closeEvents();
    else if (order == "open")
        openEvents();
    else if (order.rfind("send ", 0) == 0)
        send(order.substr(5));
}

void handle(const std::string& message)
{
    const std::string name = valueOf(message, "msg");
    if (options["ignore"] == name)
        return;
    if (options["die"] == name)
        raise(SIGKILL);
    if (options["leave"] == name)
        closeEvents();
    else if (name == "orientationCheck")
        answer(std::string("msg::orientationCheckResponse,accept:b:") +
                   (isSet("refuse") ? "false" : "true"),
               valueOf(message, "id"));
    else if (name == "orientation")
        answer("msg::orientationDone", valueOf(message, "id"));
    else if (name == "exit" && isSet("extend"))
        send("msg::extendTimeout,milliseconds:n:" + options["extend"]);
    else if (name == "exit")
        std::exit(3);
    else if (name == "invoke")
        obey(valueOf(message, "data"));
}

void readFrom(int channel)
{
    static std::vector<char> buffer(std::size_t{1} << 20);
    const ssize_t size = read(channel, buffer.data(), buffer.size());
    if (size < 0) {
        std::perror("events");
        std::exit(1);
    }
    std::string message(buffer.data(), static_cast<std::size_t>(size));
    std::replace(message.begin(), message.end(), '\n', ',');
    if (message.empty())
        return;
    message.pop_back();
    print(message.substr(message.find(',') + 1));
    handle(message);
}

} // namespace

int main(int argc, char** argv)
{
    std::vector<std::string> requests;
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        const std::size_t equals = argument.find('=');
        if (argument.rfind("msg::", 0) == 0)
            requests.push_back(argument);
        else
            options[argument.substr(0, equals)] =
                equals == std::string::npos ? "" : argument.substr(equals + 1);
    }
    control = open("/pps/services/navigator/control", O_RDWR | O_NONBLOCK | O_CLOEXEC);
    const int count = isSet("channels") ? std::stoi(options["channels"]) : 1;
    for (int i = 0; i < count; ++i)
        openEvents();
    for (const std::string& request : requests)
        send(request);
    print("started " + std::to_string(getpid()));
    for (;;) {
        if (isSet("deaf") || channels.empty()) {
            pause();
            continue;
        }
        std::vector<pollfd> entries;
        for (const int channel : channels)
            entries.push_back({channel, POLLIN, 0});
        poll(entries.data(), entries.size(), -1);
        for (const pollfd& entry : entries)
            if (entry.revents != 0 && !channels.empty())
                readFrom(entry.fd);
    }
}
