// SPDX-License-Identifier: Apache-2.0
#include "BusTransport.h"

#include <cerrno>
#include <system_error>

#include <systemd/sd-bus.h>

namespace tamobench {

namespace {

struct BusDeleter
{
    void operator()(sd_bus* bus) const { sd_bus_close_unref(bus); }
};
using Bus = std::unique_ptr<sd_bus, BusDeleter>;

struct MessageDeleter
{
    void operator()(sd_bus_message* message) const { sd_bus_message_unref(message); }
};
using Message = std::unique_ptr<sd_bus_message, MessageDeleter>;

const char* const busName = "org.freedesktop.DBus";
const char* const busPath = "/org/freedesktop/DBus";
const char* const interfaceName = "org.example.Battery";

int check(int result, const char* what)
{
    if (result < 0)
        throw std::system_error(-result, std::generic_category(), what);
    return result;
}

Bus connectTo(const std::string& address)
{
    sd_bus* raw = nullptr;
    check(sd_bus_new(&raw), "sd_bus_new");
    Bus bus(raw);
    check(sd_bus_set_address(raw, address.c_str()), "sd_bus_set_address");
    check(sd_bus_set_bus_client(raw, 1), "sd_bus_set_bus_client");
    check(sd_bus_start(raw), "sd_bus_start");
    return bus;
}

class BusPublisher : public Publisher
{
public:
    explicit BusPublisher(const std::string& address) : m_bus(connectTo(address))
    {
        check(sd_bus_call_method(m_bus.get(), busName, busPath, busName, "GetId", nullptr, nullptr,
                                 ""),
              "GetId");
    }

    void prepare(const std::string& text) override
    {
        sd_bus_message* raw = nullptr;
        check(sd_bus_message_new_signal(m_bus.get(), &raw, "/battery", interfaceName, "Changed"),
              "sd_bus_message_new_signal");
        m_message.reset(raw);
        check(sd_bus_message_append_basic(raw, 's', text.c_str()), "sd_bus_message_append_basic");
    }

    void publish() override { check(sd_bus_send(m_bus.get(), m_message.get(), nullptr), "send"); }

private:
    Bus m_bus;
    Message m_message;
};

class BusSubscription : public Subscription
{
public:
    explicit BusSubscription(const std::string& address) : m_bus(connectTo(address))
    {
        const std::string rule = std::string("type='signal',interface='") + interfaceName + "'";
        check(sd_bus_call_method(m_bus.get(), busName, busPath, busName, "AddMatch", nullptr,
                                 nullptr, "s", rule.c_str()),
              "AddMatch");
        while (check(sd_bus_process(m_bus.get(), nullptr), "sd_bus_process") > 0) {
        }
    }

    int descriptor() const override { return check(sd_bus_get_fd(m_bus.get()), "sd_bus_get_fd"); }

    std::string_view receive() override
    {
        sd_bus_message* raw = nullptr;
        check(sd_bus_process(m_bus.get(), &raw), "sd_bus_process");
        m_message.reset(raw);
        const char* text = nullptr;
        if (!raw || sd_bus_message_read_basic(raw, 's', &text) <= 0)
            return {};
        return text;
    }

private:
    Bus m_bus;
    Message m_message;
};

} // namespace

std::unique_ptr<Publisher> BusTransport::openPublisher()
{
    return std::make_unique<BusPublisher>(m_bus.address());
}

std::unique_ptr<Subscription> BusTransport::openSubscription()
{
    return std::make_unique<BusSubscription>(m_bus.address());
}

} // namespace tamobench
