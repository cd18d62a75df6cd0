// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PLATFORM_PAYMENT_RECEIPTREADER_H
#define TAMO_PLATFORM_PAYMENT_RECEIPTREADER_H

#include "ReceiptDate.h"

#include <QtCore/QString>

namespace tamo {
namespace platform {

class MessageReader;
class PurchaseReceipt;

/** Whether a receipt's state is a subscription's, which tells a period. */
bool tellsPeriod(int state);

/** A state that the payment system wrote. */
int stateFromText(const char* text);

/** A date that the payment system wrote: milliseconds since the epoch, or seconds where the text is
 * shorter than eleven characters. Null where it is not a number. */
ReceiptDate dateFromText(const QString& text);

/** Sets what the object that the reader is in tells of a purchase. */
void readReceipt(const MessageReader& reader, PurchaseReceipt& receipt);

} // namespace platform
} // namespace tamo

#endif
