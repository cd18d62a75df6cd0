// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_SUBSTITUTEPAYMENTS_H
#define TAMO_TESTS_SUBSTITUTEPAYMENTS_H

#include <tamomock/PaymentServiceInterface.h>
#include <tamomock/PaymentServiceInterfaceFactory.h>

#include <QList>
#include <QStringList>

#include <functional>
#include <utility>

namespace tamotest {

/** A back end that writes down what it is asked, and answers when it is told to. */
class SubstitutePayments : public tamomock::PaymentServiceInterface
{
public:
    using Response = tamo::platform::InterfaceResponse;
    using Calls = QList<QStringList>;

    explicit SubstitutePayments(std::function<void()> onDestruction = nullptr)
        : m_onDestruction(std::move(onDestruction))
    {
    }
    ~SubstitutePayments() override
    {
        if (m_onDestruction)
            m_onDestruction();
    }

    void purchase(const QString& goodId, const QString& sku, const QString& name,
                  const QString& metadata, const QString& applicationName,
                  const QString& applicationIcon, const QString& group, int id) override
    {
        add(id, {"purchase", goodId, sku, name, metadata, applicationName, applicationIcon, group});
    }
    void existingPurchases(bool allowRefresh, const QString& group, int id) override
    {
        add(id, {"existing", allowRefresh ? "true" : "false", group});
    }
    void price(const QString& goodId, const QString& sku, const QString& group, int id) override
    {
        add(id, {"price", goodId, sku, group});
    }
    void checkStatus(const QString& goodId, const QString& sku, const QString& group,
                     int id) override
    {
        add(id, {"check", goodId, sku, group});
    }
    void cancelSubscription(const QString& purchaseId, const QString& group, int id) override
    {
        add(id, {"cancel", purchaseId, group});
    }
    QSharedPointer<Response> takeResponse() override
    {
        const QMutexLocker locker(&mutex);
        return m_responses.isEmpty() ? nullptr : m_responses.takeFirst();
    }

    /** Announces an answer; null for an announcement without one. */
    void answer(const QSharedPointer<Response>& response)
    {
        if (response) {
            const QMutexLocker locker(&mutex);
            m_responses.append(response);
        }
        Q_EMIT dataReady();
    }

    /** Announces an empty answer to a request. */
    void answer(int requestId)
    {
        const auto response = QSharedPointer<Response>::create();
        response->requestId = requestId;
        answer(response);
    }

    /** What it was asked, and the ids that came with that. */
    Calls calls;
    QList<int> ids;

    /** Called in each request, with its id, after that was written down. */
    std::function<void(int id)> onRequest;

private:
    void add(int id, const QStringList& call)
    {
        calls.append(call);
        ids.append(id);
        if (onRequest)
            onRequest(id);
    }

    const std::function<void()> m_onDestruction;
    QList<QSharedPointer<Response>> m_responses;
};

} // namespace tamotest

#endif
