// SPDX-License-Identifier: Apache-2.0
#include <tamomock/PurchaseReceiptEditor.h>

#include "PurchaseReceiptPrivate.h"

#include <tamo/platform/PurchaseReceipt.h>

namespace tamomock {

PurchaseReceiptEditor::PurchaseReceiptEditor(tamo::platform::PurchaseReceipt& receipt)
    : m_receipt(*receipt.d)
{
}

PurchaseReceiptEditor& PurchaseReceiptEditor::setState(int state)
{
    m_receipt.fields.state = state;
    return *this;
}

PurchaseReceiptEditor& PurchaseReceiptEditor::setDate(const QDateTime& date)
{
    m_receipt.fields.date = date;
    return *this;
}

PurchaseReceiptEditor& PurchaseReceiptEditor::setDigitalGoodId(const QString& digitalGoodId)
{
    m_receipt.fields.digitalGoodId = digitalGoodId;
    return *this;
}

PurchaseReceiptEditor& PurchaseReceiptEditor::setDigitalGoodSku(const QString& digitalGoodSku)
{
    m_receipt.fields.digitalGoodSku = digitalGoodSku;
    return *this;
}

PurchaseReceiptEditor& PurchaseReceiptEditor::setLicenseKey(const QString& licenseKey)
{
    m_receipt.fields.licenseKey = licenseKey;
    return *this;
}

PurchaseReceiptEditor& PurchaseReceiptEditor::setPurchaseMetadata(const QString& purchaseMetadata)
{
    m_receipt.fields.purchaseMetadata = purchaseMetadata;
    return *this;
}

PurchaseReceiptEditor& PurchaseReceiptEditor::setPurchaseId(const QString& purchaseId)
{
    m_receipt.fields.purchaseId = purchaseId;
    return *this;
}

PurchaseReceiptEditor& PurchaseReceiptEditor::setStartDate(const QDateTime& startDate)
{
    m_receipt.fields.startDate = startDate;
    return *this;
}

PurchaseReceiptEditor& PurchaseReceiptEditor::setEndDate(const QDateTime& endDate)
{
    m_receipt.fields.endDate = endDate;
    return *this;
}

PurchaseReceiptEditor& PurchaseReceiptEditor::setInitialPeriod(int initialPeriod)
{
    m_receipt.fields.initialPeriod = initialPeriod;
    return *this;
}

} // namespace tamomock
