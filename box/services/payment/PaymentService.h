// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_PAYMENTSERVICE_H
#define TAMOBOX_PAYMENTSERVICE_H

#include "AnswerPost.h"
#include "PaymentSystem.h"
#include "PublishedCatalogue.h"
#include "RequestMailbox.h"
#include "RequestNumbers.h"
#include "WaitingRequests.h"

#include "common/Timer.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace tamobox {

/**
 * The payment system and the purchase dialog: takes the requests of applications, and answers each
 * as its policy or the user decides. See docs/payments.md.
 */
class PaymentService
{
public:
    /** What became of a decision. */
    struct Outcome
    {
        std::string purchaseId;   ///< that came of it; empty: none
        std::string refusal;      ///< why what was approved was not carried out; empty: it was
        bool isDelivered = false; ///< whether the answer is in the application's queue, or follows
    };

    /** @param onNewRequest called when a request begins to wait. Throws Failure. */
    PaymentService(EventLoop& loop, std::function<void()> onNewRequest);

    const WaitingRequests& waiting() const { return m_waiting; }
    const Ledger& ledger() const { return m_system->state().ledger; }

    /** Goes on with what a service before this one has left; called once. */
    void resume();

    /** Handles at once what applications have asked, and what is due. */
    void catchUp();

    /**
     * Answers a request that waits.
     *
     * @throws Failure where what was decided could not be recorded: it waits on
     */
    Outcome decide(int number, const Decision& decision);

    /** Replaces the catalogue. Throws Failure where it is none, and nothing has changed. */
    void setCatalogue(const std::string& text) { m_catalogue.replace(text); }

    /** The box's clock; it stands still at the end of the year 9999. */
    Moment now() const;

    /** How far the box's clock is ahead of the machine's. */
    Moment advanced() const { return m_system->state().advanced; }

    /** Throws Failure where the clock cannot be moved so far. */
    void advanceClock(Moment by);

private:
    using Envelope = RequestMailbox::Envelope;

    void takePayment(const Envelope& envelope, MessageReader& message, const std::string& text);
    void takeDialog(const Envelope& envelope, MessageReader& message, const std::string& text);
    PaymentRequest begin(const Envelope& envelope, const std::string& text, bool isDialog);
    void admit(PaymentRequest& request, const std::string& text);
    void admitOrRefuse(PaymentRequest& request, const std::string& text);
    Outcome answer(const PaymentRequest& request, const Decision& decision);
    bool answerDialog(const PaymentRequest& request, const Decision& decision);
    void refuse(const PaymentRequest& request, const PaymentError& error);
    void decideDue();
    void setTimer();

    std::function<void()> m_onNewRequest;
    Complaints m_complaints;
    std::string m_trouble; // of the beginning, to be told when there is somebody to tell
    PublishedCatalogue m_catalogue;
    std::unique_ptr<PurchaseStore> m_store = PurchaseStore::ofThisBox();
    std::unique_ptr<PaymentSystem> m_system;
    WaitingRequests m_waiting;
    RequestNumbers m_numbers;
    Timer m_timer;
    Timer m_troubleTimer;
    RequestMailbox m_payments;
    RequestMailbox m_dialogs;
    AnswerPost m_answers{m_payments, m_dialogs};
};

} // namespace tamobox

#endif
