// SPDX-License-Identifier: Apache-2.0
#include "LedClient.h"

#include <fcntl.h>

#include <cerrno>

namespace tamobox {

namespace {

constexpr const char* mailbox = "services/led/control";
constexpr auto retryPause = std::chrono::milliseconds(50);

} // namespace

LedClient::LedClient(EventLoop& loop) : m_loop(loop), m_retry(loop, [this] { ask(); }) {}

LedClient::~LedClient()
{
    if (m_mailbox)
        m_loop.unwatch(m_mailbox->descriptor());
}

void LedClient::show(const std::optional<LedWish>& wish)
{
    if (wish == m_wanted)
        return;
    m_wanted = wish;
    ask();
}

void LedClient::ask()
{
    if (m_asked == m_wanted)
        return;
    try {
        open();
        if (m_asked)
            send("cancelLED", m_asked->id);
        m_asked.reset();
        if (m_wanted)
            send("requestLED", m_wanted->id, m_wanted->color);
        m_asked = m_wanted;
    } catch (const ObjectFailure& failure) {
        if (failure.error() == ENOTCONN)
            throw;
        beginAnew();
    }
}

void LedClient::open()
{
    if (m_mailbox)
        return;
    m_mailbox = std::make_unique<ObjectFile>(mailbox, O_RDWR | O_NONBLOCK);
    // The only message that comes says that requests were lost.
    m_loop.watch(m_mailbox->descriptor(), [this] {
        if (m_mailbox->read())
            beginAnew();
    });
}

// The service forgets what a client had asked that goes, so that a new one need not know what of
// it has arrived.
void LedClient::beginAnew()
{
    if (m_mailbox)
        m_loop.unwatch(m_mailbox->descriptor());
    m_mailbox.reset();
    m_asked.reset();
    m_retry.startAt(EventLoop::Clock::now() + retryPause);
}

void LedClient::send(const char* message, const std::string& id,
                     const std::optional<LedColor>& color)
{
    MessageWriter request;
    request.object("control").add("msg", message).startObject("dat").add("id", id);
    if (color)
        request.add("color", nameOf(*color)).add("blinkCount", -1);
    request.endObject();
    m_mailbox->write(request.text());
}

} // namespace tamobox
