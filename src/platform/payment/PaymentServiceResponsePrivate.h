// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_PAYMENT_PAYMENTSERVICERESPONSEPRIVATE_H
#define TAMO_PLATFORM_PAYMENT_PAYMENTSERVICERESPONSEPRIVATE_H

#include <tamo/platform/PaymentServiceResponse.h>

#include <QtCore/QSharedData>
#include <QtCore/QString>

namespace tamo {
namespace platform {

/** What an answer says. It is written before the answer is first copied, and never again. */
class PaymentServiceResponsePrivate : public QSharedData
{
public:
    PaymentServiceResponsePrivate() = default;
    PaymentServiceResponsePrivate(int code, const QString& text)
        : error(true), errorCode(code), errorText(text)
    {
    }
    PaymentServiceResponsePrivate(const PaymentServiceResponsePrivate&) = delete;
    PaymentServiceResponsePrivate& operator=(const PaymentServiceResponsePrivate&) = delete;
    virtual ~PaymentServiceResponsePrivate() = default;

    bool error = false;
    int errorCode = 0;
    QString errorText;

    /** An answer's private object, to write, of an answer that has just been made as a `Private`'s.
     */
    template<class Private>
    static Private& write(PaymentServiceResponse& response)
    {
        return static_cast<Private&>(*response.d);
    }

    /** An answer's private object, to read. An assignment to the answer as to one of its bases may
     * have left it that of another kind; an empty one is read then. */
    template<class Private>
    static const Private& read(const PaymentServiceResponse& response)
    {
        static const Private& empty = *new Private;
        const auto* const d = dynamic_cast<const Private*>(response.d.constData());
        return d ? *d : empty;
    }
};

} // namespace platform
} // namespace tamo

#endif
