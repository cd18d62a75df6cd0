// SPDX-License-Identifier: Apache-2.0
#include "PaymentService.h"

#include "services/dialog/DialogRequest.h"

#include <algorithm>
#include <chrono>

namespace tamobox {

namespace {

Moment machineTime()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
}

std::string malformedText(const Failure& failure)
{
    return std::string("The request is malformed: ") + failure.what();
}

} // namespace

PaymentService::PaymentService(EventLoop& loop, std::function<void()> onNewRequest)
    : m_onNewRequest(std::move(onNewRequest))
    , m_complaints(loop)
    , m_timer(loop, [this] { decideDue(); })
    , m_troubleTimer(loop, [this] { Complaints::write(m_trouble); })
    , m_payments(
          loop, "services/paymentsystem/control", m_complaints,
          [this](const Envelope& envelope, MessageReader& message, const std::string& text) {
              takePayment(envelope, message, text);
          },
          [this](MailboxServer::Client client) { m_waiting.clientLeft(client, false); })
    , m_dialogs(
          loop, "services/dialog/control", m_complaints,
          [this](const Envelope& envelope, MessageReader& message, const std::string& text) {
              takeDialog(envelope, message, text);
          },
          [this](MailboxServer::Client client) { m_waiting.clientLeft(client, true); })
{
    m_system = std::make_unique<PaymentSystem>(*m_store, m_store->load(m_trouble));
    if (!ledger().all().empty())
        m_numbers.startAfter(ledger().all().rbegin()->first);
    // The box shows what a service says once it is ready.
    if (!m_trouble.empty())
        m_troubleTimer.startAt(EventLoop::Clock::now());
}

void PaymentService::resume()
{
    const std::vector<WaitingRequests::Kept> kept = m_waiting.takeOver();
    if (kept.empty())
        return;
    m_numbers.startAfter(kept.back().number);
    // Who is still there; what came meanwhile is behind what was there before.
    m_payments.catchUp();
    m_dialogs.catchUp();
    for (const auto& [number, isDialog, text] : kept) {
        (isDialog ? m_dialogs : m_payments).handOutAgain(number, text);
        if (m_waiting.find(number) == nullptr)
            m_waiting.forget(number);
    }
    Complaints::write("goes on with " + std::to_string(m_waiting.all().size()) +
                      " requests that wait");
}

void PaymentService::catchUp()
{
    m_payments.catchUp();
    m_dialogs.catchUp();
    decideDue();
}

PaymentRequest PaymentService::begin(const Envelope& envelope, const std::string& text,
                                     bool isDialog)
{
    PaymentRequest request;
    request.number = envelope.number ? *envelope.number : m_numbers.next();
    request.client = envelope.client;
    request.id = envelope.id;
    request.isDialog = isDialog;
    request.since = now();
    request.bytes = text.size();
    return request;
}

void PaymentService::takePayment(const Envelope& envelope, MessageReader& message,
                                 const std::string& text)
{
    const std::optional<Operation> operation = operationNamed(envelope.message);
    if (!operation)
        throw Failure("there is no request " + quoted(envelope.message));
    PaymentRequest request = begin(envelope, text, false);
    request.operation = *operation;
    if (request.number == RequestNumbers::none) {
        refuse(request, paymenterror::noNumber);
        return;
    }
    try {
        if (!message.enter("dat"))
            throw Failure("dat must be an object");
        readPaymentRequest(message, request);
    } catch (const Failure& failure) {
        refuse(request, {paymenterror::malformed, malformedText(failure)});
        return;
    }
    const Good* const good = m_catalogue->find(request.goodId, request.goodSku);
    if (good != nullptr)
        request.good = *good;
    if (*operation != Operation::Purchase)
        request.policy = m_catalogue->policyFor(*operation);
    else
        request.policy = good != nullptr ? good->policy : immediateApproval();
    // Nobody is asked about what cannot be; but for one that is done already.
    if (*operation == Operation::Purchase && ledger().find(request.number) != nullptr)
        request.policy = immediateApproval();
    else if (const auto obstacle = m_system->obstacleTo(request, now());
             obstacle && request.policy.who == Policy::Who::User)
        request.policy = immediateApproval();
    admitOrRefuse(request, text);
}

void PaymentService::takeDialog(const Envelope& envelope, MessageReader& message,
                                const std::string& text)
{
    PaymentRequest request = begin(envelope, text, true);
    if (request.number == RequestNumbers::none) {
        refuse(request, paymenterror::noNumber);
        return;
    }
    try {
        if (envelope.message != "show")
            throw Failure("there is no request " + quoted(envelope.message));
        if (!message.enter("dat"))
            throw Failure("dat must be an object");
        readDialogRequest(message, request);
    } catch (const Failure& failure) {
        refuse(request, {paymenterror::malformed, malformedText(failure)});
        return;
    }
    if (const Good* const good = m_catalogue->find(request.goodId, request.goodSku)) {
        request.good = *good;
        request.policy = good->policy;
    }
    admitOrRefuse(request, text);
}

void PaymentService::admitOrRefuse(PaymentRequest& request, const std::string& text)
{
    try {
        admit(request, text);
    } catch (const ObjectFailure&) {
        throw;
    } catch (const Failure& failure) {
        Complaints::write(requestText(request) + " failed: " + failure.what());
        refuse(request, paymenterror::notRecorded);
    }
}

void PaymentService::admit(PaymentRequest& request, const std::string& text)
{
    if (request.policy.who == Policy::Who::Itself && request.policy.delay.count() == 0) {
        answer(request, request.policy.decision);
        return;
    }
    if (!m_waiting.hasRoomFor(request)) {
        refuse(request, paymenterror::tooMany);
        return;
    }
    m_waiting.put(request, text, EventLoop::Clock::now());
    setTimer();
    m_onNewRequest();
}

PaymentService::Outcome PaymentService::decide(int number, const Decision& decision)
{
    const PaymentRequest* const request = m_waiting.find(number);
    if (request == nullptr)
        throw Failure("no request " + std::to_string(number) + " is waiting");
    const Outcome outcome = answer(*request, decision);
    m_waiting.remove(number);
    setTimer();
    return outcome;
}

// What it changes is recorded before anybody is told of it.
PaymentService::Outcome PaymentService::answer(const PaymentRequest& request,
                                               const Decision& decision)
{
    if (decision.kind == Decision::Kind::Garbage)
        return {{}, {}, m_answers.sendGarbage(request)};
    if (request.isDialog)
        return {{}, {}, answerDialog(request, decision)};
    PaymentAnswer answer;
    if (decision.kind == Decision::Kind::Approve)
        answer = m_system->carryOut(request, now());
    else if (decision.kind == Decision::Kind::Cancel)
        answer.error = paymenterror::canceled;
    else
        answer.error = PaymentError{decision.code, decision.text};
    Outcome outcome;
    if (decision.kind == Decision::Kind::Approve && answer.error)
        outcome.refusal = answer.error->text;
    if (request.operation == Operation::Purchase && !answer.error)
        outcome.purchaseId = answer.purchases[0].id();
    outcome.isDelivered = m_answers.send(request, answer, now());
    return outcome;
}

bool PaymentService::answerDialog(const PaymentRequest& request, const Decision& decision)
{
    if (decision.kind == Decision::Kind::Fail)
        return m_answers.sendError(request, {decision.code, decision.text}, now());
    return m_answers.sendChoice(request, decision.kind == Decision::Kind::Approve, now());
}

void PaymentService::refuse(const PaymentRequest& request, const PaymentError& error)
{
    m_answers.sendError(request, error, now());
    if (error.code == paymenterror::malformed)
        m_complaints.add(requestText(request) + " was refused: " + error.text);
}

void PaymentService::decideDue()
{
    for (auto due = m_waiting.nextDue(); due && due->first <= EventLoop::Clock::now();
         due = m_waiting.nextDue()) {
        const PaymentRequest request = *m_waiting.find(due->second);
        try {
            decide(request.number, request.policy.decision);
        } catch (const ObjectFailure&) {
            throw;
        } catch (const Failure& failure) {
            Complaints::write(requestText(request) + " failed: " + failure.what());
            refuse(request, paymenterror::notRecorded);
            m_waiting.remove(request.number);
        }
    }
    setTimer();
}

void PaymentService::setTimer()
{
    if (const auto due = m_waiting.nextDue())
        m_timer.startAt(due->first);
    else
        m_timer.stop();
}

Moment PaymentService::now() const
{
    return std::clamp<Moment>(machineTime() + advanced(), 0, latestMoment);
}

void PaymentService::advanceClock(Moment by)
{
    if (by < 0 || by > latestMoment - now())
        throw Failure("the clock goes to the end of the year 9999 and no further");
    m_system->advanceClock(by);
}

} // namespace tamobox
