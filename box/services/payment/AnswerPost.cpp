// SPDX-License-Identifier: Apache-2.0
#include "AnswerPost.h"

#include "services/dialog/DialogAnswer.h"

namespace tamobox {

bool AnswerPost::send(const PaymentRequest& request, const PaymentAnswer& answer, Moment now)
{
    MessageWriter measured;
    writeAnswer(measured.object("control"), request, answer, now);
    if (measured.text().size() > longestAnswer)
        return sendError(request, paymenterror::tooLong, now);
    return m_payments.send(request.client, [&](MessageWriter& message) {
        writeAnswer(message, request, answer, now);
    });
}

bool AnswerPost::sendChoice(const PaymentRequest& request, bool buys, Moment now)
{
    return m_dialogs.send(request.client, [&](MessageWriter& message) {
        writeDialogChoice(message, request, buys, now);
    });
}

bool AnswerPost::sendError(const PaymentRequest& request, const PaymentError& error, Moment now)
{
    if (request.isDialog)
        return m_dialogs.send(request.client, [&](MessageWriter& message) {
            writeDialogFailure(message, request.id, error.text);
        });
    PaymentAnswer answer;
    answer.error = error;
    return send(request, answer, now);
}

bool AnswerPost::sendGarbage(const PaymentRequest& request)
{
    RequestMailbox& mailbox = request.isDialog ? m_dialogs : m_payments;
    return mailbox.send(request.client, [](MessageWriter& message) {
        message.add("garbage", "}{").add("res", 42);
    });
}

} // namespace tamobox
