// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_PAYMENT_PURCHASEDIALOG_H
#define TAMO_PLATFORM_PAYMENT_PURCHASEDIALOG_H

#include <tamomock/InterfaceResponse.h>

#include <QtCore/QString>

namespace tamo {
namespace platform {

class MessageReader;
class MessageWriter;
class ServiceDescriptor;

/** The dialog in which the user confirms a purchase of test mode's. */
class PurchaseDialog
{
public:
    QString digitalGoodId;
    QString digitalGoodSku;
    QString digitalGoodName;
    QString purchaseMetadata;
    QString applicationName;
    QString applicationIcon;
    QString windowGroupId;
    int requestId = 0;

    /** What came of it. */
    struct Outcome
    {
        int requestId = 0;
        /** 0 for a purchase. */
        int errorCode = 0;
        QString errorText;
        /** Null where nothing was purchased. */
        QSharedPointer<PurchaseReceipt> receipt;
    };

    /**
     * Shows the dialog and waits until it is closed.
     *
     * @throws tamo::Exception where it cannot be shown, or its answer is malformed
     */
    Outcome run(const ServiceDescriptor& service) const;

    void writeTo(MessageWriter& writer) const;

    /** What came of it, as its answer tells. Throws as run(). */
    Outcome outcome(const char* answer, std::size_t length) const;

private:
    QSharedPointer<PurchaseReceipt> receipt(const MessageReader& reader) const;
};

} // namespace platform
} // namespace tamo

#endif
