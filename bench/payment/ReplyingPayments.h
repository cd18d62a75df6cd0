// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_BENCH_REPLYINGPAYMENTS_H
#define TAMO_BENCH_REPLYINGPAYMENTS_H

#include <tamomock/PaymentServiceInterface.h>

#include <deque>

namespace tamobench {

/** A back end that keeps the ids of price requests, and answers the one that it is told to. */
class ReplyingPayments : public tamomock::PaymentServiceInterface
{
public:
    void purchase(const QString&, const QString&, const QString&, const QString&, const QString&,
                  const QString&, const QString&, int) override
    {
    }
    void existingPurchases(bool, const QString&, int) override {}
    void price(const QString&, const QString&, const QString&, int requestId) override
    {
        ids.push_back(requestId);
    }
    void checkStatus(const QString&, const QString&, const QString&, int) override {}
    void cancelSubscription(const QString&, const QString&, int) override {}
    QSharedPointer<tamo::platform::InterfaceResponse> takeResponse() override { return m_response; }

    void reply(int requestId)
    {
        m_response->requestId = requestId;
        Q_EMIT dataReady();
    }

    /** The requests that wait, the oldest first. */
    std::deque<int> ids;

private:
    const QSharedPointer<tamo::platform::InterfaceResponse> m_response =
        QSharedPointer<tamo::platform::InterfaceResponse>::create();
};

} // namespace tamobench

#endif
