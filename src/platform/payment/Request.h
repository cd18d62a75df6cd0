// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_PAYMENT_REQUEST_H
#define TAMO_PLATFORM_PAYMENT_REQUEST_H

#include <tamomock/InterfaceResponse.h>

#include <QtCore/QObject>
#include <QtCore/QSharedPointer>
#include <QtCore/QString>

namespace tamomock {
class PaymentServiceInterface;
}

namespace tamo {
namespace platform {

/** A request that waits for its answer. Each kind has one signal, which the caller's slot is
 * connected to and which is emitted once. */
class Request : public QObject
{
    Q_OBJECT

public:
    /** A request, of a kind that is about a good where there is one. */
    explicit Request(const QString& goodId = QString(), const QString& goodSku = QString())
        : digitalGoodId(goodId), digitalGoodSku(goodSku)
    {
    }
    ~Request() override;

    /** Hands the request to a back end. */
    virtual void send(tamomock::PaymentServiceInterface* interface,
                      const QString& windowGroupId) = 0;

    /** Emits the signal with an answer that is not an error. */
    virtual void onResponse(QSharedPointer<InterfaceResponse> response) = 0;

    /** Emits the signal with an error. */
    virtual void onError(int errorCode, const QString& errorText) = 0;

    /** 0 until the request is submitted. */
    int requestId = 0;
    const QString digitalGoodId;
    const QString digitalGoodSku;
};

} // namespace platform
} // namespace tamo

#endif
