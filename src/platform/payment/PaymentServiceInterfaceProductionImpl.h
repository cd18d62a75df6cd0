// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_PAYMENT_PAYMENTSERVICEINTERFACEPRODUCTIONIMPL_H
#define TAMO_PLATFORM_PAYMENT_PAYMENTSERVICEINTERFACEPRODUCTIONIMPL_H

#include "PaymentSystemMessage.h"
#include "ServiceDescriptor.h"

#include <tamomock/PaymentServiceInterfaceProduction.h>

#include <memory>

class QSocketNotifier;

namespace tamomock {

/** The payment system, over its PPS object. It knows nothing of which requests are pending. */
class PaymentServiceInterfaceProductionImpl : public PaymentServiceInterfaceProduction
{
    Q_OBJECT

public:
    /** @throws tamo::Exception where the object cannot be opened, or for what is wrong with the
     *          package manifest */
    PaymentServiceInterfaceProductionImpl();

    /** As the above, over an open descriptor, which it takes over. A null id is not told. */
    PaymentServiceInterfaceProductionImpl(int fd, const QByteArray& applicationId);
    ~PaymentServiceInterfaceProductionImpl() override;

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
    QSharedPointer<tamo::platform::InterfaceResponse> takeResponse() override;

private Q_SLOTS:
    void rest();

private:
    void watch();
    void send(const tamo::platform::PaymentSystemMessage& message, int requestId,
              tamo::platform::PaymentArguments arguments);

    const tamo::platform::ServiceDescriptor m_control;
    const QByteArray m_applicationId;
    /** Off from each activation on until an answer was taken; the dispatcher would go on reporting
     * the one that is still there. A child, so that it comes along to another thread. */
    QSocketNotifier* m_notifier = nullptr;
    /** What an answer is read into. */
    const std::unique_ptr<char[]> m_buffer;
    /** Whether the last read got nothing. */
    bool m_wasFruitless = false;
};

} // namespace tamomock

#endif
