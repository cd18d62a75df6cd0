// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_PAYMENTSERVICEINTERFACE_H
#define TAMOMOCK_PAYMENTSERVICEINTERFACE_H

#include <tamo/export.h>
#include <tamomock/InterfaceResponse.h>

#include <QtCore/QMutex>
#include <QtCore/QObject>
#include <QtCore/QSharedPointer>
#include <QtCore/QString>

namespace tamomock {

/**
 * The back end of `tamo::platform::PaymentService`: what its requests go to, and its answers come
 * from. The library has two, the platform's payment system and test mode;
 * PaymentServiceInterfaceFactory puts another one in their place, and shows how.
 *
 * **Answers.** For each answer a back end emits dataReady() once, from any thread, at any time from
 * the beginning of the request on, inside of the request's operation too. The service then calls
 * takeResponse() once for each emission, in its own thread, later: never inside of the emission.
 * What was announced before the back end was replaced is not taken.
 *
 * **Threads.** The service calls the operations in turn, never two at a time, requests in the
 * thread of whoever makes them. It holds its lock meanwhile: no operation makes a request of the
 * service, sets its mode, or waits for a thread that does. The back end lives in the service's
 * thread and is deleted there, whichever thread it was made in.
 *
 * **Exceptions.** What a request operation throws comes out of the application's request, which
 * then gets no answer; what takeResponse() throws comes out of the service's event loop.
 *
 * @since 0.1
 */
class TAMO_EXPORT PaymentServiceInterface : public QObject
{
    Q_OBJECT

public:
    explicit PaymentServiceInterface(QObject* parent = nullptr);
    ~PaymentServiceInterface() override;

    // Each operation is given the application's window group, and the id that the answer bears.

    /** @param applicationIcon the icon's URL as text */
    virtual void purchase(const QString& digitalGoodId, const QString& digitalGoodSku,
                          const QString& digitalGoodName, const QString& purchaseMetadata,
                          const QString& applicationName, const QString& applicationIcon,
                          const QString& windowGroupId, int requestId) = 0;

    virtual void existingPurchases(bool allowRefresh, const QString& windowGroupId,
                                   int requestId) = 0;

    /** Asks for a good's price, and for a subscription's terms. */
    virtual void price(const QString& digitalGoodId, const QString& digitalGoodSku,
                       const QString& windowGroupId, int requestId) = 0;

    virtual void checkStatus(const QString& digitalGoodId, const QString& digitalGoodSku,
                             const QString& windowGroupId, int requestId) = 0;

    virtual void cancelSubscription(const QString& purchaseId, const QString& windowGroupId,
                                    int requestId) = 0;

    /** The answer that dataReady() announced; null where there is none, or it cannot be understood.
     */
    virtual QSharedPointer<tamo::platform::InterfaceResponse> takeResponse() = 0;

Q_SIGNALS:
    /** There is one more answer to take. */
    void dataReady();

protected:
    /** For an implementation to use; this class does not. */
    QMutex mutex;
};

} // namespace tamomock

#endif
