// SPDX-License-Identifier: Apache-2.0
#include "PaymentServiceImpl.h"

#include "CancelSubscriptionRequest.h"
#include "CheckStatusRequest.h"
#include "ExistingPurchasesRequest.h"
#include "PriceRequest.h"
#include "PurchaseRequest.h"
#include "SubscriptionTermsRequest.h"
#include "core/NeverDestroyed.h"

#include <tamo/Exception.h>
#include <tamomock/PaymentServiceInterface.h>
#include <tamomock/PaymentServiceInterfaceFactory.h>

#include <QtCore/QMutex>
#include <QtCore/QMutexLocker>
#include <QtCore/QThread>

namespace tamo {
namespace platform {

using tamomock::PaymentServiceInterface;
using tamomock::PaymentServiceInterfaceFactory;

namespace {

/** The service lock, over what it is in here, and the back end, its mode and the pending requests.
 */
struct Shared
{
    QMutex lock;
    int nextRequestId = 0;
};

tamo::detail::NeverDestroyed<Shared> shared;

const QString& empty()
{
    static const QString& text = *new QString(QLatin1String(""));
    return text;
}

} // namespace

PaymentServiceImpl::PaymentServiceImpl()
{
    createInterface(m_connectionMode);
    qRegisterMetaType<QList<PurchaseReceipt>>("QList<tamo::platform::PurchaseReceipt>");
    qRegisterMetaType<PurchaseReceipt>("tamo::platform::PurchaseReceipt");
    qRegisterMetaType<PurchaseResponseInfo>("tamo::platform::PurchaseResponseInfo");
    qRegisterMetaType<ExistingPurchasesResponseInfo>(
        "tamo::platform::ExistingPurchasesResponseInfo");
    qRegisterMetaType<PriceResponseInfo>("tamo::platform::PriceResponseInfo");
    qRegisterMetaType<SubscriptionTermsResponseInfo>(
        "tamo::platform::SubscriptionTermsResponseInfo");
    qRegisterMetaType<CheckStatusResponseInfo>("tamo::platform::CheckStatusResponseInfo");
    qRegisterMetaType<CancelSubscriptionResponseInfo>(
        "tamo::platform::CancelSubscriptionResponseInfo");
}

PaymentServiceImpl::~PaymentServiceImpl() = default;

void PaymentServiceImpl::setWindowGroupId(const QString& windowGroupId)
{
    m_windowGroupId = windowGroupId;
}

void PaymentServiceImpl::setApplicationName(const QString& applicationName)
{
    m_applicationName = applicationName;
}

QString PaymentServiceImpl::applicationName() const
{
    return m_applicationName;
}

void PaymentServiceImpl::setApplicationIcon(const QUrl& applicationIcon)
{
    m_applicationIcon = applicationIcon;
}

QUrl PaymentServiceImpl::applicationIcon() const
{
    return m_applicationIcon;
}

void PaymentServiceImpl::requestPurchase(const QString& digitalGoodId, QObject* receiver,
                                         const char* slot)
{
    requestPurchase(digitalGoodId, empty(), empty(), empty(), receiver, slot);
}

void PaymentServiceImpl::requestPurchase(const QString& digitalGoodId,
                                         const QString& digitalGoodSku, QObject* receiver,
                                         const char* slot)
{
    requestPurchase(digitalGoodId, digitalGoodSku, empty(), empty(), receiver, slot);
}

void PaymentServiceImpl::requestPurchase(const QString& digitalGoodId,
                                         const QString& digitalGoodSku,
                                         const QString& digitalGoodName, QObject* receiver,
                                         const char* slot)
{
    requestPurchase(digitalGoodId, digitalGoodSku, digitalGoodName, empty(), receiver, slot);
}

void PaymentServiceImpl::requestPurchase(const QString& digitalGoodId,
                                         const QString& digitalGoodSku,
                                         const QString& digitalGoodName,
                                         const QString& purchaseMetadata, QObject* receiver,
                                         const char* slot)
{
    submit(QSharedPointer<Request>(new PurchaseRequest(digitalGoodId, digitalGoodSku,
                                                       digitalGoodName, purchaseMetadata)),
           SIGNAL(purchaseResponse(tamo::platform::PurchaseResponseInfo)), receiver, slot);
}

void PaymentServiceImpl::requestExistingPurchases(bool allowRefresh, QObject* receiver,
                                                  const char* slot)
{
    submit(QSharedPointer<Request>(new ExistingPurchasesRequest(allowRefresh)),
           SIGNAL(existingPurchasesResponse(tamo::platform::ExistingPurchasesResponseInfo)),
           receiver, slot);
}

void PaymentServiceImpl::requestPrice(const QString& digitalGoodId, QObject* receiver,
                                      const char* slot)
{
    requestPrice(digitalGoodId, empty(), receiver, slot);
}

void PaymentServiceImpl::requestPrice(const QString& digitalGoodId, const QString& digitalGoodSku,
                                      QObject* receiver, const char* slot)
{
    submit(QSharedPointer<Request>(new PriceRequest(digitalGoodId, digitalGoodSku)),
           SIGNAL(priceResponse(tamo::platform::PriceResponseInfo)), receiver, slot);
}

void PaymentServiceImpl::requestSubscriptionTerms(const QString& digitalGoodId, QObject* receiver,
                                                  const char* slot)
{
    requestSubscriptionTerms(digitalGoodId, empty(), receiver, slot);
}

void PaymentServiceImpl::requestSubscriptionTerms(const QString& digitalGoodId,
                                                  const QString& digitalGoodSku, QObject* receiver,
                                                  const char* slot)
{
    submit(QSharedPointer<Request>(new SubscriptionTermsRequest(digitalGoodId, digitalGoodSku)),
           SIGNAL(subscriptionTermsResponse(tamo::platform::SubscriptionTermsResponseInfo)),
           receiver, slot);
}

void PaymentServiceImpl::checkStatus(const QString& digitalGoodId, QObject* receiver,
                                     const char* slot)
{
    checkStatus(digitalGoodId, empty(), receiver, slot);
}

void PaymentServiceImpl::checkStatus(const QString& digitalGoodId, const QString& digitalGoodSku,
                                     QObject* receiver, const char* slot)
{
    submit(QSharedPointer<Request>(new CheckStatusRequest(digitalGoodId, digitalGoodSku)),
           SIGNAL(checkStatusResponse(tamo::platform::CheckStatusResponseInfo)), receiver, slot);
}

void PaymentServiceImpl::cancelSubscription(const QString& purchaseId, QObject* receiver,
                                            const char* slot)
{
    submit(QSharedPointer<Request>(new CancelSubscriptionRequest(purchaseId)),
           SIGNAL(cancelSubscriptionResponse(tamo::platform::CancelSubscriptionResponseInfo)),
           receiver, slot);
}

void PaymentServiceImpl::submit(const QSharedPointer<Request>& request, const char* signal,
                                QObject* receiver, const char* slot)
{
    connect(request.data(), signal, receiver, slot);
    // It emits its signal there, and is deleted.
    request->moveToThread(thread());
    const QMutexLocker locker(&shared->lock);
    if (!m_interface)
        throw Exception();
    request->requestId = shared->nextRequestId++;
    request->send(m_interface.get(), m_windowGroupId);
    m_pendingRequests.insert(request->requestId, request);
}

void PaymentServiceImpl::onDataReady()
{
    deliver(m_generation);
}

void PaymentServiceImpl::deliver(int generation)
{
    QSharedPointer<InterfaceResponse> response;
    QSharedPointer<Request> request;
    {
        const QMutexLocker locker(&shared->lock);
        // What a former back end has announced went with it, and what the present one has is not
        // the answer.
        if (!m_interface || generation != m_generation)
            throw Exception();
        response = m_interface->takeResponse();
        if (!response)
            throw Exception();
        request = m_pendingRequests.take(response->requestId);
        if (!request)
            throw Exception();
    }
    if (response->error)
        request->onError(response->errorCode, response->errorText);
    else
        request->onResponse(response);
}

void PaymentServiceImpl::setConnectionMode(int mode)
{
    const QMutexLocker locker(&shared->lock);
    if (mode == m_connectionMode)
        return;
    m_interface.reset();
    createInterface(mode);
    m_connectionMode = mode;
}

void PaymentServiceImpl::createInterface(int mode)
{
    m_interface.reset(PaymentServiceInterfaceFactory::create(mode));
    if (!m_interface)
        throw Exception();
    m_interface->moveToThread(thread());
    const int generation = ++m_generation;
    connect(
        m_interface.get(), &PaymentServiceInterface::dataReady, this,
        [this, generation] { deliver(generation); }, Qt::QueuedConnection);
}

void PaymentServiceImpl::InItsThread::operator()(PaymentServiceInterface* interface) const
{
    if (interface->thread() == QThread::currentThread()) {
        delete interface;
        return;
    }
    interface->disconnect();
    interface->deleteLater();
}

} // namespace platform
} // namespace tamo
