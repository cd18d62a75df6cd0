// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_INTERFACERESPONSE_H
#define TAMOMOCK_INTERFACERESPONSE_H

#include <tamo/platform/PurchaseReceipt.h>

#include <QtCore/QList>
#include <QtCore/QSharedPointer>
#include <QtCore/QString>

namespace tamo {
namespace platform {

/**
 * One answer, as a tamomock::PaymentServiceInterface hands it to the service. Of the fields behind
 * the error's, each kind of request looks at its own ones, and at none where `error` is true.
 *
 * The service reads the record after the call that handed it out has returned: a back end changes
 * it no more.
 *
 * @since 0.1
 */
struct InterfaceResponse
{
    /** The id of the request that is answered. */
    int requestId = 0;

    bool error = false;
    int errorCode = 0;
    QString errorText;

    /** A purchase's; tamomock::PurchaseReceiptEditor fills it. */
    QSharedPointer<PurchaseReceipt> receipt;

    /** The existing purchases. */
    QList<PurchaseReceipt> purchases;

    /** A price's, and the first of a subscription's terms. */
    QString price;
    QString initialPeriod;
    QString renewalPrice;
    QString renewalPeriod;

    /** A check's: whether the subscription exists. */
    bool subscriptionExists = false;

    /** A cancellation's. The application is told the id that it passed, not this one. */
    QString purchaseId;
    bool cancelled = false;
};

} // namespace platform
} // namespace tamo

#endif
