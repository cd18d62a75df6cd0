// SPDX-License-Identifier: Apache-2.0
#include "Outboxes.h"

#include <algorithm>

namespace tamobox {

namespace {

/** What a message takes here. */
std::size_t sizeOf(const std::string& message)
{
    return message.size() + sizeof message;
}

} // namespace

Outboxes::Outboxes(EventLoop& loop, Send send)
    : m_send(std::move(send)), m_timer(loop, [this] { tryDue(); })
{
}

Outboxes::Delivery Outboxes::send(Client client, const std::string& message)
{
    tryNow(client);
    const auto found = m_boxes.find(client);
    if (found == m_boxes.end()) {
        const Delivery delivery = m_send(message);
        if (delivery != Delivery::Full)
            return delivery;
    }
    const std::size_t size = sizeOf(message);
    const std::size_t before = found == m_boxes.end() ? 0 : found->second.bytes;
    if (before + size > mostOfAClient || m_bytes + size > mostOfAll)
        return Delivery::Full;
    Box& box = m_boxes[client];
    box.messages.push_back(message);
    box.bytes += size;
    m_bytes += size;
    if (found == m_boxes.end()) {
        box.next = Clock::now() + box.pause;
        m_due.emplace(box.next, client);
        setTimer();
    }
    return Delivery::Sent;
}

void Outboxes::tryNow(Client client)
{
    const auto found = m_boxes.find(client);
    if (found == m_boxes.end())
        return;
    Box& box = found->second;
    bool hasRead = false;
    while (!box.messages.empty()) {
        const Delivery delivery = m_send(box.messages.front());
        if (delivery == Delivery::Gone) {
            clientLeft(client);
            return;
        }
        if (delivery == Delivery::Full)
            break;
        hasRead = true;
        const std::size_t size = sizeOf(box.messages.front());
        box.bytes -= size;
        m_bytes -= size;
        box.messages.pop_front();
    }
    if (box.messages.empty()) {
        clientLeft(client);
        return;
    }
    if (!hasRead)
        return;
    m_due.erase({box.next, client});
    box.pause = firstPause;
    box.next = Clock::now() + box.pause;
    m_due.emplace(box.next, client);
    setTimer();
}

void Outboxes::clientLeft(Client client)
{
    const auto found = m_boxes.find(client);
    if (found == m_boxes.end())
        return;
    m_bytes -= found->second.bytes;
    m_due.erase({found->second.next, client});
    m_boxes.erase(found);
    setTimer();
}

void Outboxes::tryDue()
{
    const auto now = Clock::now();
    while (!m_due.empty() && m_due.begin()->first <= now) {
        const Client client = m_due.begin()->second;
        Box& box = m_boxes.at(client);
        m_due.erase(m_due.begin());
        box.pause = std::min<std::chrono::milliseconds>(box.pause * 2, longestPause);
        box.next = now + box.pause;
        m_due.emplace(box.next, client);
        tryNow(client);
    }
    setTimer();
}

void Outboxes::setTimer()
{
    if (m_due.empty())
        m_timer.stop();
    else
        m_timer.startAt(m_due.begin()->first);
}

} // namespace tamobox
