// SPDX-License-Identifier: Apache-2.0
#include "LedService.h"

#include "LedText.h"

#include "common/Failure.h"
#include "services/RequestValues.h"

#include <algorithm>
#include <limits>

namespace tamobox {

namespace {

// All of them find room in one object.
constexpr std::size_t longestId = 128; // bytes
constexpr int mostOfAClient = 256;
constexpr std::size_t mostInAll = 1024;

std::string idIn(const MessageReader& dat)
{
    return requiredText(dat, "id", longestId);
}

LedColor colorIn(const MessageReader& dat)
{
    const std::optional<LedColor> color = ledColorNamed(dat.string("color").value_or(""));
    if (!color)
        throw Failure("color must be one of " + ledColorNames());
    return *color;
}

int blinkCountIn(const MessageReader& dat)
{
    const int count = dat.integer("blinkCount").value_or(0);
    if (count == 0 || count < -1)
        throw Failure("blinkCount must be a whole number from 1 to " +
                      std::to_string(std::numeric_limits<int>::max()) +
                      ", or -1 for flashing until it is cancelled");
    return count;
}

} // namespace

LedService::LedService(EventLoop& loop)
    : m_complaints(loop)
    , m_status("services/led/status")
    , m_kept(ledObject)
    , m_schedule(Clock::now())
    , m_timer(loop, [this] { goOn(); })
    , m_mailbox(loop, "services/led/control", m_complaints,
                {{"requestLED", [this](const auto& client, auto& dat) { request(client, dat); }},
                 {"cancelLED", [this](const auto& client, auto& dat) { cancel(client, dat); }}},
                [this](MailboxServer::Client client) {
                    m_schedule.forget(client);
                    goOn();
                })
{
    publishStatus();
    restore();
    goOn();
}

void LedService::request(const ApplicationClient& client, MessageReader& dat)
{
    const LedRequest request = {client.number, client.process, client.application,
                                idIn(dat),     colorIn(dat),   blinkCountIn(dat)};
    const std::vector<LedRequest>& all = m_schedule.state().requests;
    const auto ofClient = [&](const LedRequest& other) { return other.client == client.number; };
    const auto isSame = [&](const LedRequest& other) {
        return other.isOf(client.number, request.id);
    };
    if (std::none_of(all.begin(), all.end(), isSame)) {
        if (std::count_if(all.begin(), all.end(), ofClient) >= mostOfAClient)
            throw Failure("it has " + std::to_string(mostOfAClient) + " requests already");
        if (all.size() >= mostInAll)
            throw Failure("there are " + std::to_string(mostInAll) + " requests already");
    }
    m_schedule.add(request);
    goOn();
}

void LedService::cancel(const ApplicationClient& client, MessageReader& dat)
{
    m_schedule.cancel(client.number, idIn(dat));
    goOn();
}

void LedService::restore()
{
    const std::optional<std::string> text = m_kept.published();
    if (!text)
        return;
    m_schedule.restore(readLed(*text).requests);
    m_mailbox.catchUp();
    const std::size_t lost = m_schedule.removeIf([this](const LedRequest& request) {
        return !m_mailbox.isThere(request.client, request.process);
    });
    Complaints::write("requests that go on: " + std::to_string(m_schedule.state().requests.size()) +
                      ", that ended with their applications: " + std::to_string(lost) +
                      "; what was asked for meanwhile is lost");
}

void LedService::goOn()
{
    if (m_schedule.advance(Clock::now()))
        publishStatus();
    m_kept.publishChange([this](MessageWriter& message) { writeLed(message, m_schedule.state()); });
    if (const auto next = m_schedule.nextChange())
        m_timer.startAt(*next);
    else
        m_timer.stop();
}

void LedService::publishStatus()
{
    const int lit = static_cast<int>(m_schedule.state().lit);
    const auto text = [lit](LedColor component) {
        return (lit & static_cast<int>(component)) != 0 ? "on" : "off";
    };
    m_status.publish([&](MessageWriter& message) {
        message.add("red", text(LedColor::Red))
            .add("green", text(LedColor::Green))
            .add("blue", text(LedColor::Blue));
    });
}

} // namespace tamobox
