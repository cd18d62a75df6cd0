// SPDX-License-Identifier: Apache-2.0
#include "ControlClient.h"

#include <fcntl.h>
#include <poll.h>

#include <cerrno>
#include <chrono>
#include <thread>

namespace tamobox {

namespace {

using Clock = std::chrono::steady_clock;

constexpr auto answerLimit = std::chrono::seconds(5);
// A service that has died is there again within this time, or not at all.
constexpr auto serviceLimit = std::chrono::seconds(2);
constexpr auto retryPause = std::chrono::milliseconds(10);

} // namespace

ControlClient::ControlClient(const std::string& mailbox)
    : m_mailbox(mailbox)
    , m_name(mailbox.substr(mailbox.rfind('/') + 1))
    , m_file(mailbox, O_RDWR | O_NONBLOCK)
{
}

void ControlClient::ask(const std::string& command, const std::function<void(MessageWriter&)>& fill,
                        const ReportHandler& onReport)
{
    MessageWriter request;
    request.object(m_name).add("msg", command).add("id", "1").startObject("dat");
    fill(request);
    request.endObject();
    send(request.text());
    for (;;) {
        MessageReader answer(await());
        if (!answer.enter(('@' + m_name).c_str()))
            continue;
        if (answer.has("undelivered"))
            throw Failure("the service at /pps/" + m_mailbox +
                          " ended before it took the command; try again");
        if (const auto result = answer.string("res")) {
            if (*result == "ok")
                return;
            throw Failure(answer.string("text").value_or("the service gave no reason"));
        }
        if (onReport && answer.enter("dat"))
            onReport(answer);
    }
}

void ControlClient::tell(const std::string& command)
{
    MessageWriter message;
    message.object(m_name).add("msg", command).add("id", "2");
    send(message.text());
}

void ControlClient::send(const std::string& request)
{
    const auto deadline = Clock::now() + serviceLimit;
    for (;;) {
        try {
            m_file.write(request);
            return;
        } catch (const ObjectFailure& failure) {
            if (failure.error() != EPIPE || Clock::now() >= deadline)
                throw;
        }
        std::this_thread::sleep_for(retryPause);
    }
}

std::optional<std::string> ControlClient::read()
{
    try {
        return m_file.read();
    } catch (const ObjectFailure& failure) {
        if (failure.error() != ENOTCONN && failure.error() != ECONNABORTED)
            throw;
        throw ObjectFailure("the box ended before it answered; what it was asked to do may have "
                            "been done",
                            failure.error());
    }
}

std::string ControlClient::await()
{
    const auto deadline = Clock::now() + answerLimit;
    for (;;) {
        if (auto message = read())
            return *message;
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
        pollfd entry = {m_file.descriptor(), POLLIN, 0};
        if (left.count() <= 0 || poll(&entry, 1, static_cast<int>(left.count())) == 0)
            throw Failure("the service at /pps/" + m_mailbox + " does not answer");
    }
}

} // namespace tamobox
