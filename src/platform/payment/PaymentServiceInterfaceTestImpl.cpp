// SPDX-License-Identifier: Apache-2.0
#include "PaymentServiceInterfaceTestImpl.h"

#include "PurchaseDialog.h"
#include "ServiceDescriptor.h"

#include <QtCore/QMutexLocker>

#include <fcntl.h>

namespace tamomock {

using tamo::platform::InterfaceResponse;
using tamo::platform::PurchaseDialog;
using tamo::platform::ServiceDescriptor;

namespace {

// With "?wait" a read waits for the dialog's end.
constexpr const char* dialogPath = "/pps/services/dialog/control?wait";

void setError(InterfaceResponse& response, int code, const QString& text)
{
    response.error = true;
    response.errorCode = code;
    response.errorText = text;
}

} // namespace

PaymentServiceInterfaceTestImpl::PaymentServiceInterfaceTestImpl()
    : m_response(QSharedPointer<InterfaceResponse>::create())
{
}

PaymentServiceInterfaceTestImpl::~PaymentServiceInterfaceTestImpl() = default;

template<class Change>
void PaymentServiceInterfaceTestImpl::answer(int requestId, const Change& change)
{
    const QMutexLocker locker(&mutex);
    {
        const QMutexLocker responseLocker(&m_responseMutex);
        m_response->requestId = requestId;
        m_response->error = false;
        change(*m_response);
    }
    Q_EMIT dataReady();
}

void PaymentServiceInterfaceTestImpl::purchase(
    const QString& digitalGoodId, const QString& digitalGoodSku, const QString& digitalGoodName,
    const QString& purchaseMetadata, const QString& applicationName, const QString& applicationIcon,
    const QString& windowGroupId, int requestId)
{
    const PurchaseDialog dialog = {digitalGoodId,    digitalGoodSku,  digitalGoodName,
                                   purchaseMetadata, applicationName, applicationIcon,
                                   windowGroupId,    requestId};
    const PurchaseDialog::Outcome outcome = dialog.run(ServiceDescriptor(dialogPath, O_RDWR));
    answer(outcome.requestId, [&outcome](InterfaceResponse& response) {
        if (!outcome.receipt) {
            setError(response, outcome.errorCode, outcome.errorText);
            return;
        }
        response.receipt = outcome.receipt;
        response.purchases.append(*outcome.receipt);
    });
}

void PaymentServiceInterfaceTestImpl::existingPurchases(bool allowRefresh, const QString&,
                                                        int requestId)
{
    answer(requestId, [allowRefresh](InterfaceResponse& response) {
        if (allowRefresh)
            setError(
                response, 1,
                QStringLiteral("Get existing purchases (network) not supported in test mode."));
    });
}

void PaymentServiceInterfaceTestImpl::price(const QString&, const QString&, const QString&,
                                            int requestId)
{
    answer(requestId, [](InterfaceResponse& response) {
        response.price = QStringLiteral("$1.99");
        response.initialPeriod = QStringLiteral("7");
        response.renewalPrice = QStringLiteral("$.99");
        response.renewalPeriod = QStringLiteral("14");
    });
}

void PaymentServiceInterfaceTestImpl::checkStatus(const QString&, const QString&, const QString&,
                                                  int requestId)
{
    answer(requestId, [](InterfaceResponse& response) { response.subscriptionExists = true; });
}

void PaymentServiceInterfaceTestImpl::cancelSubscription(const QString&, const QString&,
                                                         int requestId)
{
    answer(requestId, [](InterfaceResponse& response) { response.cancelled = true; });
}

QSharedPointer<InterfaceResponse> PaymentServiceInterfaceTestImpl::takeResponse()
{
    const QMutexLocker locker(&m_responseMutex);
    return QSharedPointer<InterfaceResponse>::create(*m_response);
}

} // namespace tamomock
