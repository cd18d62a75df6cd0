// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_ANSWERPOST_H
#define TAMOBOX_ANSWERPOST_H

#include "PaymentAnswer.h"
#include "RequestMailbox.h"

namespace tamobox {

/**
 * Sends answers to the applications that have asked: the payment system's, and the dialog's.
 *
 * Each operation returns whether the answer is in the application's queue, or follows.
 */
class AnswerPost
{
public:
    /** Both mailboxes must outlive the object. */
    AnswerPost(RequestMailbox& payments, RequestMailbox& dialogs)
        : m_payments(payments), m_dialogs(dialogs)
    {
    }

    /** Answers a request to the payment system; one too long to be read with that as an error. */
    bool send(const PaymentRequest& request, const PaymentAnswer& answer, Moment now);

    /** Answers a dialog with what the user has chosen: to buy, or not. */
    bool sendChoice(const PaymentRequest& request, bool buys, Moment now);

    /** Answers either with an error, of which the dialog's answer has the text alone. */
    bool sendError(const PaymentRequest& request, const PaymentError& error, Moment now);

    /** Answers either with what nobody can take for an answer to anything. */
    bool sendGarbage(const PaymentRequest& request);

private:
    RequestMailbox& m_payments;
    RequestMailbox& m_dialogs;
};

} // namespace tamobox

#endif
