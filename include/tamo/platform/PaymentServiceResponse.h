// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_PAYMENTSERVICERESPONSE_H
#define TAMO_PLATFORM_PAYMENTSERVICERESPONSE_H

#include <tamo/export.h>

#include <QtCore/QExplicitlySharedDataPointer>
#include <QtCore/QMetaType>
#include <QtCore/QString>

namespace tamo {
namespace platform {

class PaymentServiceResponsePrivate;

/**
 * What every answer of the payment service's says: whether the request failed, and how. The classes
 * derived from it add what each kind of request asks for.
 *
 * Answers are values that are only read. A copy costs a pointer and a count: copies share what they
 * say, in whichever threads they are, and each stays valid on its own. Different copies may be used
 * in different threads at the same time.
 *
 * @since 0.1
 */
class TAMO_EXPORT PaymentServiceResponse
{
public:
    /** An answer without an error. */
    PaymentServiceResponse();

    /** An answer that says that the request failed. */
    PaymentServiceResponse(int errorCode, const QString& errorText);

    PaymentServiceResponse(const PaymentServiceResponse& other);
    PaymentServiceResponse& operator=(const PaymentServiceResponse& other);
    virtual ~PaymentServiceResponse();

    /** Whether the request failed. All but the error is empty then, save what the request named. */
    bool error() const;

    /** The payment system's number of the error; 0 where there is none. */
    int errorCode() const;

    /** The payment system's text of the error; null where there is none. */
    QString errorText() const;

protected:
    /** An answer over a private object that nobody else has; it belongs to the answer from then on.
     */
    explicit PaymentServiceResponse(PaymentServiceResponsePrivate& adopted);

private:
    friend class PaymentServiceResponsePrivate;

    QExplicitlySharedDataPointer<PaymentServiceResponsePrivate> d;
};

} // namespace platform
} // namespace tamo

Q_DECLARE_METATYPE(tamo::platform::PaymentServiceResponse)

#endif
