// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_PAYMENT_PAYMENTSERVICEINTERFACETESTIMPL_H
#define TAMO_PLATFORM_PAYMENT_PAYMENTSERVICEINTERFACETESTIMPL_H

#include <tamomock/PaymentServiceInterfaceTest.h>

namespace tamomock {

/**
 * Test mode: a dialog for purchases, fixed answers for everything else. One record serves for all
 * answers: each overwrites what it sets, and leaves the rest as the former one left it. An answer
 * is handed out as a copy of the record as it is then.
 */
class PaymentServiceInterfaceTestImpl : public PaymentServiceInterfaceTest
{
    Q_OBJECT

public:
    PaymentServiceInterfaceTestImpl();
    ~PaymentServiceInterfaceTestImpl() override;

    /** Waits until the dialog is closed. Throws tamo::Exception where there is none, or its answer
     * is malformed. */
    void purchase(const QString& digitalGoodId, const QString& digitalGoodSku,
                  const QString& digitalGoodName, const QString& purchaseMetadata,
                  const QString& applicationName, const QString& applicationIcon,
                  const QString& windowGroupId, int requestId) override;
    void existingPurchases(bool allowRefresh, const QString& windowGroupId, int requestId) override;
    void price(const QString& digitalGoodId, const QString& digitalGoodSku,
               const QString& windowGroupId, int requestId) override;
    void checkStatus(const QString& digitalGoodId, const QString& digitalGoodSku,
                     const QString& windowGroupId, int requestId) override;
    void cancelSubscription(const QString& purchaseId, const QString& windowGroupId,
                            int requestId) override;

    /** Never null. */
    QSharedPointer<tamo::platform::InterfaceResponse> takeResponse() override;

private:
    /** Changes the record and announces it, under the interface's mutex. */
    template<class Change>
    void answer(int requestId, const Change& change);

    /** Over the record alone, so that who is called directly by dataReady(), under the interface's
     * mutex, can take it. Locked after that. */
    QMutex m_responseMutex;
    const QSharedPointer<tamo::platform::InterfaceResponse> m_response;
};

} // namespace tamomock

#endif
