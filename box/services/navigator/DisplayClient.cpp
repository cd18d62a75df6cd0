// SPDX-License-Identifier: Apache-2.0
#include "DisplayClient.h"

#include "pps/MessageReader.h"
#include "pps/MessageWriter.h"

#include <fcntl.h>

#include <cerrno>

namespace tamobox {

namespace {

constexpr const char* mailbox = "box/display";
constexpr const char* displays = "services/screen/displays";
constexpr auto retryPause = std::chrono::milliseconds(10);

std::optional<int> rotationIn(const std::string& text)
{
    MessageReader reader(text);
    if (!reader.enter("@displays") || !reader.enter("displays"))
        return std::nullopt;
    while (reader.next()) {
        if (!reader.enter(nullptr))
            continue;
        if (reader.string("type").value_or("") == "internal")
            return reader.integer("rotation").value_or(0);
        reader.leave();
    }
    return std::nullopt;
}

} // namespace

DisplayClient::DisplayClient(EventLoop& loop, AnswerHandler onAnswer)
    : m_loop(loop), m_onAnswer(std::move(onAnswer)), m_timer(loop, [this] { send(); })
{
}

DisplayClient::~DisplayClient()
{
    if (m_mailbox)
        m_loop.unwatch(m_mailbox->descriptor());
}

void DisplayClient::turn(int rotation)
{
    m_rotation = rotation;
    m_waits = true;
    m_timer.startAt(EventLoop::Clock::now());
}

void DisplayClient::cancel()
{
    m_waits = false;
    m_timer.stop();
}

std::optional<int> DisplayClient::publishedRotation()
{
    try {
        const auto text = ObjectFile(displays, O_RDONLY | O_NONBLOCK).read();
        return text ? rotationIn(*text) : std::nullopt;
    } catch (const ObjectFailure& failure) {
        if (failure.error() == ENOTCONN)
            throw;
        return std::nullopt;
    }
}

void DisplayClient::send()
{
    if (!m_waits)
        return;
    try {
        if (!m_mailbox) {
            m_mailbox = std::make_unique<ObjectFile>(mailbox, O_RDWR | O_NONBLOCK);
            m_loop.watch(m_mailbox->descriptor(), [this] { readAnswers(); });
        }
        MessageWriter request;
        request.object("display").add("msg", "rotate").add("id", std::to_string(++m_id));
        request.startObject("dat").add("rotation", m_rotation).endObject();
        m_mailbox->write(request.text());
    } catch (const ObjectFailure& failure) {
        if (failure.error() == ENOTCONN)
            throw;
        if (failure.error() == EPIPE)
            m_timer.startAt(EventLoop::Clock::now() + retryPause);
        else
            finish(failure.what());
    }
}

void DisplayClient::readAnswers()
{
    const std::optional<std::string> text = m_mailbox->read();
    if (!text)
        return;
    MessageReader answer(*text);
    if (!answer.enter("@display") || !m_waits)
        return;
    if (answer.has("undelivered"))
        send();
    else if (answer.string("id") != std::to_string(m_id))
        return;
    else if (answer.string("res") == "ok")
        finish(std::nullopt);
    else if (answer.has("res"))
        finish(answer.string("text").value_or("the display service gave no reason"));
}

void DisplayClient::finish(const std::optional<std::string>& failure)
{
    cancel();
    m_onAnswer(failure);
}

} // namespace tamobox
