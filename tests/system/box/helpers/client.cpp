// SPDX-License-Identifier: Apache-2.0
// tamo-test-client MAILBOX [deaf] [REQUEST...]: plays an application that asks a service through a
// mailbox. It sends its requests, prints "started PID", and from then on each message that it is
// sent on a line, with spaces between the message's lines. What is published as `order` in
// /pps/orders-PID it sends, too; the order "close" closes its mailbox, "read" ends its deafness.
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

std::string readFrom(int fd)
{
    static std::vector<char> buffer(std::size_t{1} << 20);
    const ssize_t size = read(fd, buffer.data(), buffer.size());
    if (size < 0) {
        std::perror("read");
        std::exit(1);
    }
    return std::string(buffer.data(), static_cast<std::size_t>(size));
}

void send(int mailbox, const std::string& request)
{
    if (write(mailbox, request.data(), request.size()) != static_cast<ssize_t>(request.size()))
        std::perror("request");
}

/** The order in the text of the object, with its line ends. */
std::string orderIn(const std::string& text)
{
    const std::string name = "\norder::";
    const std::size_t begin = text.find(name);
    if (begin == std::string::npos)
        return {};
    std::string order = text.substr(begin + name.size());
    order.erase(order.find('\n'));
    for (std::size_t at = order.find("\\n"); at != std::string::npos; at = order.find("\\n"))
        order.replace(at, 2, "\n");
    return order;
}

} // namespace

int main(int argc, char** argv)
{
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    const int mailbox = open(("/pps/" + arguments.at(0)).c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
    const std::string ordersPath = "/pps/orders-" + std::to_string(getpid());
    const int orders = open(ordersPath.c_str(), O_RDONLY | O_CREAT | O_NONBLOCK | O_CLOEXEC, 0600);
    bool deaf = false;
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        if (arguments[i] == "deaf")
            deaf = true;
        else
            send(mailbox, arguments[i]);
    }
    std::printf("started %d\n", getpid());
    std::fflush(stdout);
    for (;;) {
        std::array<pollfd, 2> entries = {{{orders, POLLIN, 0}, {deaf ? -1 : mailbox, POLLIN, 0}}};
        poll(entries.data(), entries.size(), -1);
        if (entries[0].revents != 0) {
            const std::string order = orderIn(readFrom(orders));
            if (order == "close")
                close(mailbox);
            else if (order == "read")
                deaf = false;
            else if (!order.empty())
                send(mailbox, order);
        }
        if (entries[1].revents != 0 && (entries[1].revents & POLLNVAL) == 0) {
            std::string message = readFrom(mailbox);
            std::replace(message.begin(), message.end(), '\n', ' ');
            std::printf("%s\n", message.c_str());
            std::fflush(stdout);
        }
        if ((entries[1].revents & POLLNVAL) != 0)
            deaf = true; // it is closed
    }
}
