// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_WAITINGREQUESTS_H
#define TAMOBOX_WAITINGREQUESTS_H

#include "PaymentRequest.h"
#include "RecordPages.h"
#include "WaitingRoom.h"

#include "common/EventLoop.h"
#include "services/Publisher.h"

#include <map>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace tamobox {

/** The requests that are not answered yet, in the order in which they came. They are kept in
 * `/pps`, so that a service that is started again goes on with them; their number is published. */
class WaitingRequests
{
public:
    using Clock = EventLoop::Clock;

    /** Throws ObjectFailure. */
    WaitingRequests();

    /** A request that a service before this one has kept. */
    struct Kept
    {
        int number = 0;
        bool isDialog = false;
        std::string text; ///< as put() was given it
    };

    /** What a service before this one has kept, in the order of the numbers. Forgets what is no
     * request. Throws ObjectFailure. */
    std::vector<Kept> takeOver();

    /** Forgets what was kept under a number. */
    void forget(int number) { m_pages.erase(number); }

    const std::map<int, PaymentRequest>& all() const { return m_requests; }

    /** nullptr where there is none. */
    const PaymentRequest* find(int number) const;

    /** The first one that waits for the user; nullptr where there is none. */
    const PaymentRequest* oldestForUser() const;

    /** Whether there is room for a request. */
    bool hasRoomFor(const PaymentRequest& request) const;

    /** Adds a request, whose message is `text`; one that is never answered is not kept. Throws
     * Failure where it is too long to be kept, and ObjectFailure. */
    void put(const PaymentRequest& request, const std::string& text, Clock::time_point now);

    /** Takes a request out. Throws ObjectFailure. */
    void remove(int number);

    /** Takes out the requests of a client that has gone. */
    void clientLeft(MailboxServer::Client client, bool isDialog);

    /** The request whose time comes first, and when; nothing where there is none. */
    std::optional<std::pair<Clock::time_point, int>> nextDue() const;

private:
    void takeOut(int number);
    void publishSummary();

    Publisher m_summary;
    RecordPages m_pages;
    std::map<int, PaymentRequest> m_requests;
    std::set<std::tuple<bool, MailboxServer::Client, int>> m_ofClient; // dialog, client, number
    std::set<std::pair<Clock::time_point, int>> m_due;                 // when, number
    std::map<int, Clock::time_point> m_dueOf;                          // by number
    std::set<int> m_forUser;                                           // numbers
    WaitingRoom m_room;
};

} // namespace tamobox

#endif
