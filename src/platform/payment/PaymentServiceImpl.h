// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_PAYMENT_PAYMENTSERVICEIMPL_H
#define TAMO_PLATFORM_PAYMENT_PAYMENTSERVICEIMPL_H

#include <tamo/platform/PaymentService.h>

#include <QtCore/QMap>
#include <QtCore/QSharedPointer>

#include <atomic>
#include <memory>

namespace tamomock {
class PaymentServiceInterface;
}

namespace tamo {
namespace platform {

class Request;

/**
 * The service over one back end at a time. A request goes through submit() and comes back through
 * onDataReady().
 *
 * Lock order: the service lock, then getInstance()'s, then the factory's or the back end's own.
 */
class PaymentServiceImpl : public PaymentService
{
    Q_OBJECT

public:
    /** @throws tamo::Exception where there is no back end for production */
    PaymentServiceImpl();
    ~PaymentServiceImpl() override;

    void setWindowGroupId(const QString& windowGroupId) override;
    void setApplicationName(const QString& applicationName) override;
    QString applicationName() const override;
    void setApplicationIcon(const QUrl& applicationIcon) override;
    QUrl applicationIcon() const override;

    void requestPurchase(const QString& digitalGoodId, QObject* receiver,
                         const char* slot) override;
    void requestPurchase(const QString& digitalGoodId, const QString& digitalGoodSku,
                         QObject* receiver, const char* slot) override;
    void requestPurchase(const QString& digitalGoodId, const QString& digitalGoodSku,
                         const QString& digitalGoodName, QObject* receiver,
                         const char* slot) override;
    void requestPurchase(const QString& digitalGoodId, const QString& digitalGoodSku,
                         const QString& digitalGoodName, const QString& purchaseMetadata,
                         QObject* receiver, const char* slot) override;
    void requestExistingPurchases(bool allowRefresh, QObject* receiver, const char* slot) override;
    void requestPrice(const QString& digitalGoodId, QObject* receiver, const char* slot) override;
    void requestPrice(const QString& digitalGoodId, const QString& digitalGoodSku,
                      QObject* receiver, const char* slot) override;
    void requestSubscriptionTerms(const QString& digitalGoodId, QObject* receiver,
                                  const char* slot) override;
    void requestSubscriptionTerms(const QString& digitalGoodId, const QString& digitalGoodSku,
                                  QObject* receiver, const char* slot) override;
    void checkStatus(const QString& digitalGoodId, QObject* receiver, const char* slot) override;
    void checkStatus(const QString& digitalGoodId, const QString& digitalGoodSku, QObject* receiver,
                     const char* slot) override;
    void cancelSubscription(const QString& purchaseId, QObject* receiver,
                            const char* slot) override;
    void setConnectionMode(int mode) override;

private Q_SLOTS:
    /** Takes one answer of the present back end and hands it to its request. */
    void onDataReady();

private:
    /** A back end is used and deleted in the thread that it lives in, which is the service's. */
    struct InItsThread
    {
        void operator()(tamomock::PaymentServiceInterface* interface) const;
    };

    /** Has the back end send a request whose signal goes to the caller's slot, and keeps it. */
    void submit(const QSharedPointer<Request>& request, const char* signal, QObject* receiver,
                const char* slot);

    /** Takes one answer of a back end, which is told by its number, and hands it to its request. */
    void deliver(int generation);

    /** Makes a back end, in place of the one that was there. */
    void createInterface(int mode);

    std::unique_ptr<tamomock::PaymentServiceInterface, InItsThread> m_interface;
    /** How many back ends there have been. */
    std::atomic<int> m_generation{0};
    /** The mode that was last successfully set. */
    int m_connectionMode = 1;
    QString m_applicationName;
    QUrl m_applicationIcon;
    /** Sent and not yet answered. */
    QMap<int, QSharedPointer<Request>> m_pendingRequests;
    QString m_windowGroupId;
};

} // namespace platform
} // namespace tamo

#endif
