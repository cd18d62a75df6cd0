// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_PAYMENTSERVICE_H
#define TAMO_PLATFORM_PAYMENTSERVICE_H

#include <tamo/export.h>
#include <tamo/platform/CancelSubscriptionResponseInfo.h>
#include <tamo/platform/CheckStatusResponseInfo.h>
#include <tamo/platform/ExistingPurchasesResponseInfo.h>
#include <tamo/platform/PriceResponseInfo.h>
#include <tamo/platform/PurchaseResponseInfo.h>
#include <tamo/platform/SubscriptionTermsResponseInfo.h>

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QUrl>

namespace tamo {
namespace platform {

/**
 * In-app purchases of digital goods. Each request names a receiver and a slot of it; the answer
 * comes later, once, as a value that is handed to that slot:
 *
 *     PaymentService* const payments = PaymentService::getInstance();
 *     payments->requestPurchase("sword", shop,
 *                               SLOT(onPurchase(tamo::platform::PurchaseResponseInfo)));
 *
 * | request                     | the slot's argument                               |
 * |-----------------------------|---------------------------------------------------|
 * | requestPurchase()           | `tamo::platform::PurchaseResponseInfo`            |
 * | requestExistingPurchases()  | `tamo::platform::ExistingPurchasesResponseInfo`   |
 * | requestPrice()              | `tamo::platform::PriceResponseInfo`               |
 * | requestSubscriptionTerms()  | `tamo::platform::SubscriptionTermsResponseInfo`   |
 * | checkStatus()               | `tamo::platform::CheckStatusResponseInfo`         |
 * | cancelSubscription()        | `tamo::platform::CancelSubscriptionResponseInfo`  |
 *
 * The slot is written with SLOT() or SIGNAL(). Nothing checks it: where the receiver has no such
 * slot, Qt warns and the answer is lost. What the payment system refuses is an answer too, one
 * whose `error()` is true. A request that the payment system never answers stays pending for the
 * life of the process; it cannot be withdrawn.
 *
 * **Modes.** In mode 1, which it begins with, the service talks to the platform's payment system,
 * and needs the file `app/META-INF/MANIFEST.MF` below the process's working directory, with a
 * `Package-Name` and a `Package-Id`. In mode 0, test mode, a purchase shows a dialog in which
 * nothing is paid, and everything else is answered with fixed values. Test mode has one record for
 * all its answers: where two requests are made before the service's event loop runs, the first
 * answer delivered is that to the second request, and the second one throws (see below).
 *
 * **Exceptions.** Requests throw tamo::Exception where they cannot be handed on: there is no back
 * end (see setConnectionMode()), a text holds what a PPS object cannot carry (a NUL character, half
 * a surrogate pair), the payment system's object takes no message (it has not read the last 128 of
 * this process, or has gone), or, in test mode, the dialog does not answer properly. Such a request
 * gets no answer.
 *
 * An answer that is malformed, that nobody waits for, or whose back end has been replaced in the
 * meantime makes the slot that takes it throw tamo::Exception. It comes out of the event loop, as
 * does what an application's own slots throw: an application that does not catch it ends. Catch it
 * in QCoreApplication::notify(), as Notification shows. Nothing but that one answer is lost: other
 * requests go on waiting, and the next answer arrives.
 *
 * **Threads.** Requests and setConnectionMode() may be called from any thread; they take turns. In
 * test mode a purchase keeps its turn until the dialog is closed. Answers are taken in the thread
 * that first called getInstance(), which needs an event loop and should live as long as the
 * process; receivers there are called directly, receivers in other threads through their event
 * loops. A receiver may make requests. The application's name and icon and the window group are set
 * before other threads make requests.
 *
 * A test can put a payment system of its own behind the service:
 * tamomock::PaymentServiceInterfaceFactory.
 *
 * @since 0.1
 */
class TAMO_EXPORT PaymentService : public QObject
{
    Q_OBJECT

public:
    /**
     * The process's service; made by the first call, and never destroyed.
     *
     * @throws tamo::Exception where the payment system's object cannot be opened, or the package
     *         manifest cannot be read or lacks the package's name or id. The next call tries again.
     */
    static PaymentService* getInstance();

    PaymentService();
    ~PaymentService() override;

    /** The window group of the application, which goes with every request; null at first. */
    virtual void setWindowGroupId(const QString& windowGroupId) = 0;

    /** The application's name, as purchases show it; null at first. */
    virtual void setApplicationName(const QString& applicationName) = 0;
    virtual QString applicationName() const = 0;

    /** The application's icon, as purchases show it; empty at first. */
    virtual void setApplicationIcon(const QUrl& applicationIcon) = 0;
    virtual QUrl applicationIcon() const = 0;

    // Where a request is made with fewer texts, the others are empty.

    /** Purchases a good. */
    virtual void requestPurchase(const QString& digitalGoodId, QObject* receiver,
                                 const char* slot) = 0;
    virtual void requestPurchase(const QString& digitalGoodId, const QString& digitalGoodSku,
                                 QObject* receiver, const char* slot) = 0;
    virtual void requestPurchase(const QString& digitalGoodId, const QString& digitalGoodSku,
                                 const QString& digitalGoodName, QObject* receiver,
                                 const char* slot) = 0;
    /** @param purchaseMetadata a text of the application's own, which comes back in the receipt */
    virtual void requestPurchase(const QString& digitalGoodId, const QString& digitalGoodSku,
                                 const QString& digitalGoodName, const QString& purchaseMetadata,
                                 QObject* receiver, const char* slot) = 0;

    /**
     * Asks for what has been purchased.
     *
     * @param allowRefresh whether the payment system may ask the network; false for what the device
     *        knows
     */
    virtual void requestExistingPurchases(bool allowRefresh, QObject* receiver,
                                          const char* slot) = 0;

    /** Asks for a good's price. */
    virtual void requestPrice(const QString& digitalGoodId, QObject* receiver,
                              const char* slot) = 0;
    virtual void requestPrice(const QString& digitalGoodId, const QString& digitalGoodSku,
                              QObject* receiver, const char* slot) = 0;

    /** Asks for a subscription's terms. */
    virtual void requestSubscriptionTerms(const QString& digitalGoodId, QObject* receiver,
                                          const char* slot) = 0;
    virtual void requestSubscriptionTerms(const QString& digitalGoodId,
                                          const QString& digitalGoodSku, QObject* receiver,
                                          const char* slot) = 0;

    /** Asks whether a subscription exists. */
    virtual void checkStatus(const QString& digitalGoodId, QObject* receiver, const char* slot) = 0;
    virtual void checkStatus(const QString& digitalGoodId, const QString& digitalGoodSku,
                             QObject* receiver, const char* slot) = 0;

    /** Cancels the subscription of a purchase: PurchaseReceipt::purchaseId(). */
    virtual void cancelSubscription(const QString& purchaseId, QObject* receiver,
                                    const char* slot) = 0;

    /**
     * Sets whom requests go to: 0 for test mode, 1 for the payment system. The present mode is left
     * as it is. Requests that are pending go on waiting, though what was before will not answer
     * them any more; test mode's purchases are forgotten with it.
     *
     * The former back end is deleted before the next one is made. Called in another thread than
     * the service's, this leaves that to the event loop there: the former one is not heard any
     * more, and goes when that loop runs.
     *
     * @throws tamo::Exception for any other number: there is no back end from then on, and every
     *         request throws, until a mode is set that is another one than the last that was
     *         successfully set. Likewise where the back end cannot be made (see getInstance()).
     */
    virtual void setConnectionMode(int mode) = 0;
};

} // namespace platform
} // namespace tamo

#endif
