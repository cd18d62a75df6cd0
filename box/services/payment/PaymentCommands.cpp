// SPDX-License-Identifier: Apache-2.0
#include "PaymentCommands.h"

#include "PaymentLimits.h"
#include "PaymentReport.h"

#include "common/Duration.h"
#include "common/Failure.h"
#include "common/Printable.h"
#include "services/RequestValues.h"
#include "services/dialog/DialogWords.h"

#include <cmath>
#include <limits>

namespace tamobox {

namespace {

// What a client's queue has room for, with room to spare.
constexpr int mostReports = 32;
constexpr std::size_t mostBytesOfReports = std::size_t{512} << 10;

constexpr int defaultWait = 2000; // milliseconds
constexpr int highest = std::numeric_limits<int>::max();

std::size_t sizeOf(const PaymentRequest& request)
{
    return request.bytes;
}

std::size_t sizeOf(const Purchase& purchase)
{
    return purchase.metadata.size() + purchase.licenseKey.size();
}

// Reports what comes after a number, as much as there is room for; the client asks for the rest.
template<typename Value, typename Write>
void reportAfter(ControlMailbox& control, const ControlRequest& request,
                 const std::map<int, Value>& values, int number, Write writeOne)
{
    int reports = 0;
    std::size_t bytes = 0; // as they came, which is about as they go
    for (auto i = values.upper_bound(number); i != values.end(); ++i) {
        control.report(request, [&](MessageWriter& message) { writeOne(message, i->second); });
        bytes += sizeOf(i->second);
        if (++reports == mostReports || bytes >= mostBytesOfReports)
            return;
    }
}

void checkFailureText(const std::string& text)
{
    if (text.empty() || text.size() > longestFailureText || !isPrintable(text))
        throw Failure("the text must be 1 to " + std::to_string(longestFailureText) +
                      " bytes long, without control characters");
    if (text == dialogSucceeded)
        throw Failure("'" + text + "' is what a dialog answers when all is well");
}

} // namespace

PaymentCommands::PaymentCommands(EventLoop& loop)
    : m_service(loop, [this] { m_pending.tryAgain(); })
    , m_control(loop, "box/payment", commands(),
                [this](MailboxServer::Client client) { m_pending.clientLeft(client); })
    , m_pending(loop, m_control, [] {})
{
    m_service.resume();
}

std::map<std::string, ControlMailbox::Command> PaymentCommands::commands()
{
    return {
        {"list", [this](const auto& request, auto& arguments) { return list(request, arguments); }},
        {"purchases",
         [this](const auto& request, auto& arguments) { return purchases(request, arguments); }},
        {"approve",
         [this](const auto& request, auto& arguments) {
             return decide(request, arguments, {Decision::Kind::Approve});
         }},
        {"cancel",
         [this](const auto& request, auto& arguments) {
             return decide(request, arguments, {Decision::Kind::Cancel});
         }},
        {"fail",
         [this](const auto& request, auto& arguments) {
             const std::string text = requiredText(arguments, "text");
             checkFailureText(text);
             const int code =
                 optionalInteger(arguments, "code", 1, highest).value_or(paymenterror::declined);
             return decide(request, arguments, {Decision::Kind::Fail, code, text});
         }},
        {"catalogue",
         [this](const auto&, auto& arguments) {
             m_service.setCatalogue(requiredText(arguments, "text", Catalogue::longestText));
             return Outcome::Done;
         }},
        {"clock", [this](const auto& request, auto&) { return clock(request); }},
        {"advance",
         [this](const auto& request, auto& arguments) { return advance(request, arguments); }},
    };
}

ControlMailbox::Outcome PaymentCommands::list(const ControlRequest& request,
                                              MessageReader& arguments)
{
    const int after = optionalInteger(arguments, "after", 0, highest).value_or(0);
    m_service.catchUp();
    reportAfter(m_control, request, m_service.waiting().all(), after, writeRequest);
    return Outcome::Done;
}

ControlMailbox::Outcome PaymentCommands::purchases(const ControlRequest& request,
                                                   MessageReader& arguments)
{
    const int after = optionalInteger(arguments, "after", 0, highest).value_or(0);
    m_service.catchUp();
    reportAfter(m_control, request, m_service.ledger().all(), after,
                [now = m_service.now()](MessageWriter& message, const Purchase& one) {
                    writePurchase(message, one, now);
                });
    return Outcome::Done;
}

ControlMailbox::Outcome PaymentCommands::decide(const ControlRequest& request,
                                                MessageReader& arguments, const Decision& decision)
{
    const std::optional<int> number = optionalInteger(arguments, "request", 1, highest);
    const auto wait = std::chrono::milliseconds(
        optionalInteger(arguments, "wait", 0, static_cast<int>(longestDuration.count()))
            .value_or(defaultWait));
    m_service.catchUp();
    m_pending.hold(request, wait, [this, request, number, decision] {
        return tryToDecide(request, number, decision);
    });
    return Outcome::GoesOn;
}

PendingCommands::Trial PaymentCommands::tryToDecide(const ControlRequest& request,
                                                    std::optional<int> number,
                                                    const Decision& decision)
{
    const WaitingRequests& waiting = m_service.waiting();
    const PaymentRequest* const found = number ? waiting.find(*number) : waiting.oldestForUser();
    if (found == nullptr)
        return {Trial::Result::Waits, number
                                          ? "no request " + std::to_string(*number) + " is waiting"
                                          : std::string("no request is waiting for a decision")};
    const PaymentRequest decided = *found;
    const PaymentService::Outcome outcome = m_service.decide(decided.number, decision);
    m_control.report(request, [&](MessageWriter& message) {
        message.add("request", decided.number)
            .add("id", decided.id)
            .add("pid", decided.client.process)
            .add("application", decided.client.application)
            .add("purchaseID", outcome.purchaseId);
    });
    if (!outcome.refusal.empty())
        throw Failure(requestText(decided) +
                      " was refused all the same, and told so: " + outcome.refusal);
    if (!outcome.isDelivered)
        throw Failure(
            requestText(decided) + " was decided" +
            (outcome.purchaseId.empty() ? "" : ", and " + outcome.purchaseId + " recorded") +
            ", but the application could not be told: it is leaving, or does not read");
    return {};
}

ControlMailbox::Outcome PaymentCommands::clock(const ControlRequest& request)
{
    m_control.report(request, [this](MessageWriter& message) {
        message.add("now", static_cast<double>(m_service.now()))
            .add("advanced", static_cast<double>(m_service.advanced()));
    });
    return Outcome::Done;
}

ControlMailbox::Outcome PaymentCommands::advance(const ControlRequest& request,
                                                 MessageReader& arguments)
{
    const double by = arguments.number("milliseconds").value_or(0);
    if (!(by >= 1 && by <= static_cast<double>(latestMoment)) || std::floor(by) != by)
        throw Failure("milliseconds must be a whole number above 0");
    m_service.catchUp();
    m_service.advanceClock(static_cast<Moment>(by));
    return clock(request);
}

} // namespace tamobox
