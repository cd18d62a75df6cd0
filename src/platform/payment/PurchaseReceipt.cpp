// SPDX-License-Identifier: Apache-2.0
#include <tamo/platform/PurchaseReceipt.h>

#include "PurchaseReceiptPrivate.h"

namespace tamo {
namespace platform {

PurchaseReceipt::PurchaseReceipt() : d(std::make_unique<PurchaseReceiptPrivate>(this)) {}

PurchaseReceipt::PurchaseReceipt(const PurchaseReceipt& other)
    : d(std::make_unique<PurchaseReceiptPrivate>(this, other.d->fields))
{
}

PurchaseReceipt& PurchaseReceipt::operator=(const PurchaseReceipt& other)
{
    if (this != &other)
        d->fields = other.d->fields;
    return *this;
}

PurchaseReceipt::~PurchaseReceipt() = default;

QString PurchaseReceipt::digitalGoodId() const
{
    return d->fields.digitalGoodId;
}

QString PurchaseReceipt::digitalGoodSku() const
{
    return d->fields.digitalGoodSku;
}

QString PurchaseReceipt::licenseKey() const
{
    return d->fields.licenseKey;
}

QString PurchaseReceipt::purchaseMetadata() const
{
    return d->fields.purchaseMetadata;
}

QString PurchaseReceipt::purchaseId() const
{
    return d->fields.purchaseId;
}

int PurchaseReceipt::state() const
{
    return d->fields.state;
}

int PurchaseReceipt::initialPeriod() const
{
    return d->fields.initialPeriod;
}

QDateTime PurchaseReceipt::date() const
{
    return d->fields.date.toDateTime();
}

QDateTime PurchaseReceipt::startDate() const
{
    return d->fields.startDate.toDateTime();
}

QDateTime PurchaseReceipt::endDate() const
{
    return d->fields.endDate.toDateTime();
}

bool PurchaseReceipt::isSubscription() const
{
    return state() != 0;
}

} // namespace platform
} // namespace tamo
