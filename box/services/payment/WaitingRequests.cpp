// SPDX-License-Identifier: Apache-2.0
#include "WaitingRequests.h"

#include "Purchase.h"

#include <limits>

namespace tamobox {

namespace {

// How the kept requests of the two mailboxes begin.
constexpr char paymentMark = 'p';
constexpr char dialogMark = 'd';

std::size_t sizeOf(const PaymentRequest& request)
{
    return WaitingRoom::sizeOf(request.bytes);
}

} // namespace

WaitingRequests::WaitingRequests() : m_summary("box/payments"), m_pages("box/waiting")
{
    publishSummary();
}

std::vector<WaitingRequests::Kept> WaitingRequests::takeOver()
{
    std::vector<Kept> requests;
    for (const auto& [number, text] : m_pages.all()) {
        const bool isDialog = !text.empty() && text[0] == dialogMark;
        const bool isRequest = isDialog || (!text.empty() && text[0] == paymentMark);
        if (isRequest && number > 0 && number <= Purchase::highestNumber)
            requests.push_back({number, isDialog, text.substr(1)});
        else
            forget(number);
    }
    return requests;
}

const PaymentRequest* WaitingRequests::find(int number) const
{
    const auto found = m_requests.find(number);
    return found == m_requests.end() ? nullptr : &found->second;
}

const PaymentRequest* WaitingRequests::oldestForUser() const
{
    return m_forUser.empty() ? nullptr : &m_requests.at(*m_forUser.begin());
}

bool WaitingRequests::hasRoomFor(const PaymentRequest& request) const
{
    return m_room.isFor(request.client.process, sizeOf(request));
}

void WaitingRequests::put(const PaymentRequest& request, const std::string& text,
                          Clock::time_point now)
{
    const int number = request.number;
    if (request.policy.who != Policy::Who::Nobody)
        m_pages.put(number, (request.isDialog ? dialogMark : paymentMark) + text);
    m_requests.emplace(number, request);
    m_ofClient.emplace(request.isDialog, request.client.number, number);
    m_room.take(request.client.process, sizeOf(request));
    if (request.policy.who == Policy::Who::User)
        m_forUser.insert(number);
    if (request.policy.who == Policy::Who::Itself) {
        m_dueOf[number] = now + request.policy.delay;
        m_due.emplace(m_dueOf[number], number);
    }
    publishSummary();
}

void WaitingRequests::remove(int number)
{
    takeOut(number);
    publishSummary();
}

void WaitingRequests::takeOut(int number)
{
    const auto found = m_requests.find(number);
    if (found == m_requests.end())
        return;
    const PaymentRequest& request = found->second;
    m_room.giveBack(request.client.process, sizeOf(request));
    m_ofClient.erase({request.isDialog, request.client.number, number});
    m_forUser.erase(number);
    if (const auto due = m_dueOf.find(number); due != m_dueOf.end()) {
        m_due.erase({due->second, number});
        m_dueOf.erase(due);
    }
    m_requests.erase(found);
    m_pages.erase(number);
}

void WaitingRequests::clientLeft(MailboxServer::Client client, bool isDialog)
{
    std::vector<int> numbers;
    for (auto i = m_ofClient.lower_bound({isDialog, client, std::numeric_limits<int>::min()});
         i != m_ofClient.end() && std::get<0>(*i) == isDialog && std::get<1>(*i) == client; ++i)
        numbers.push_back(std::get<2>(*i));
    for (const int number : numbers)
        takeOut(number);
    if (!numbers.empty())
        publishSummary(); // once, however many there were
}

std::optional<std::pair<WaitingRequests::Clock::time_point, int>> WaitingRequests::nextDue() const
{
    return m_due.empty() ? std::nullopt : std::optional(*m_due.begin());
}

void WaitingRequests::publishSummary()
{
    m_summary.publish("waiting", static_cast<int>(m_requests.size()));
}

} // namespace tamobox
