// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_PAYMENT_PAYMENTSYSTEMMESSAGE_H
#define TAMO_PLATFORM_PAYMENT_PAYMENTSYSTEMMESSAGE_H

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <cstddef>
#include <variant>

namespace tamo {
namespace platform {

class MessageWriter;

/** What requests to the payment system are about. Each kind of request tells some of it. */
struct PaymentArguments
{
    QString windowGroupId;
    QString digitalGoodId = {};
    QString digitalGoodSku = {};
    QString digitalGoodName = {};
    QString purchaseMetadata = {};
    QString applicationName = {};
    QString applicationIcon = {};
    QString purchaseId = {};
    bool allowRefresh = false;
    /** The package of the application, in UTF-8; null is not told. */
    QByteArray applicationId = {};
};

/** A kind of request to the payment system, as it is written. */
class PaymentSystemMessage
{
public:
    static const PaymentSystemMessage purchase;
    static const PaymentSystemMessage existingPurchases;
    /** A price, and a subscription's terms. */
    static const PaymentSystemMessage price;
    static const PaymentSystemMessage checkStatus;
    static const PaymentSystemMessage cancelSubscription;

    /** @throws tamo::Exception where an argument holds what a PPS object cannot carry */
    void writeTo(MessageWriter& writer, int requestId, const PaymentArguments& arguments) const;

private:
    struct Field
    {
        const char* name;
        std::variant<QString PaymentArguments::*, bool PaymentArguments::*,
                     QByteArray PaymentArguments::*>
            value;
    };

    template<std::size_t Count>
    constexpr PaymentSystemMessage(const char* msg, const Field (&fields)[Count])
        : m_msg(msg), m_fields(fields), m_fieldCount(Count)
    {
    }

    struct Fields;

    const char* m_msg;
    const Field* m_fields;
    std::size_t m_fieldCount;
};

} // namespace platform
} // namespace tamo

#endif
