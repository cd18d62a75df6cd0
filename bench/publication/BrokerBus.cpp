// SPDX-License-Identifier: Apache-2.0
#include "BrokerBus.h"

#include <array>
#include <stdexcept>
#include <system_error>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <systemd/sd-bus.h>

namespace tamobench {

namespace {

int check(int result, const char* what)
{
    if (result < 0)
        throw std::system_error(-result, std::generic_category(), what);
    return result;
}

// The broker's notation of a policy, of which this is the shortest that allows everything.
const char* const rules = "bta(btbs)a(btssssuutt)a(btssssuutt)";
const char* const policy = "a(u(bta(btbs)a(btssssuutt)a(btssssuutt)))"
                           "a(buu(bta(btbs)a(btssssuutt)a(btssssuutt)))a(ss)bs";

void appendPolicy(sd_bus_message* message)
{
    const std::string perUser = std::string("u(") + rules + ")";
    const std::string forAnyUser = std::string("(") + perUser + ")";
    const std::string body = std::string("(") + policy + ")";
    const std::uint64_t priority = 1;
    const int allow = true;
    const auto append = [&](auto... arguments) {
        check(sd_bus_message_append(message, arguments...), "append to the policy");
    };
    const auto open = [&](char type, const std::string& contents) {
        check(sd_bus_message_open_container(message, type, contents.c_str()), "open a container");
    };
    const auto close = [&] { check(sd_bus_message_close_container(message), "close a container"); };

    open('v', body);
    open('r', policy);
    open('a', forAnyUser);
    open('r', perUser);
    append("u", 0xffffffffU);
    open('r', rules);
    append("bt", allow, priority);
    append("a(btbs)", 1, allow, priority, allow, "");
    append("a(btssssuutt)", 1, allow, priority, "", "", "", "", 0U, 0U, std::uint64_t{0},
           UINT64_MAX);
    append("a(btssssuutt)", 1, allow, priority, "", "", "", "", 0U, 0U, std::uint64_t{0},
           UINT64_MAX);
    close();
    close();
    close();
    append("a(buu(bta(btbs)a(btssssuutt)a(btssssuutt)))", 0);
    append("a(ss)", 0);
    append("b", 0);
    append("s", "session");
    close();
    close();
}

Descriptor listenOn(const std::string& path)
{
    Descriptor listener(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0), "socket");
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof(address.sun_path))
        throw std::runtime_error("the socket's path is too long: " + path);
    path.copy(address.sun_path, path.size());
    if (::bind(listener.get(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)) < 0 ||
        ::listen(listener.get(), 1024) < 0)
        throwErrno("listen on " + path);
    return listener;
}

} // namespace

/** The connection on which the broker takes its orders. */
class BrokerBus::Controller
{
public:
    explicit Controller(Descriptor socket)
    {
        check(sd_bus_new(&m_bus), "sd_bus_new");
        check(sd_bus_set_fd(m_bus, socket.get(), socket.get()), "sd_bus_set_fd");
        socket.release();
        check(sd_bus_start(m_bus), "sd_bus_start");
    }

    ~Controller() { sd_bus_close_unref(m_bus); }
    Controller(const Controller&) = delete;
    Controller& operator=(const Controller&) = delete;

    void addListener(int listener)
    {
        sd_bus_message* request = nullptr;
        check(sd_bus_message_new_method_call(m_bus, &request, nullptr, "/org/bus1/DBus/Broker",
                                             "org.bus1.DBus.Broker", "AddListener"),
              "sd_bus_message_new_method_call");
        check(sd_bus_message_append(request, "oh", "/org/bus1/DBus/Listener/0", listener),
              "append the listener");
        appendPolicy(request);
        sd_bus_error error = {}; // as SD_BUS_ERROR_NULL, which is C99 and no C++
        const int result = sd_bus_call(m_bus, request, 5'000'000, &error, nullptr);
        sd_bus_message_unref(request);
        sd_bus_error_free(&error);
        check(result, "dbus-broker does not take its listening socket");
    }

private:
    sd_bus* m_bus = nullptr;
};

BrokerBus::BrokerBus()
{
    if (!isInstalled("dbus-broker"))
        throw std::runtime_error("dbus-broker is not installed");
    std::array<int, 2> ends = {};
    if (::socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()) < 0)
        throwErrno("socketpair");
    Descriptor ours(ends[0], "socketpair");
    Descriptor brokers(ends[1], "socketpair");
    ::fcntl(ours.get(), F_SETFD, FD_CLOEXEC);
    m_broker = ChildProcess([&] {
        const std::string unlimited = "1000000000";
        execute({"dbus-broker", "--controller", std::to_string(brokers.get()), "--machine-id",
                 "0123456789abcdef0123456789abcdef", "--max-bytes", unlimited, "--max-fds",
                 "100000", "--max-matches", "100000"});
    });
    brokers.close();
    m_controller = std::make_unique<Controller>(std::move(ours));
    m_controller->addListener(listenOn(socketPath()).get());
}

BrokerBus::~BrokerBus() = default;

} // namespace tamobench
