// SPDX-License-Identifier: Apache-2.0
#include "ReceiptReader.h"

#include "DecimalText.h"
#include "MessageReader.h"
#include "PurchaseReceiptPrivate.h"

namespace tamo {
namespace platform {

namespace {

constexpr int notTold = 5;

using Fields = PurchaseReceiptPrivate::Fields;

struct TextField
{
    const char* name;
    QString Fields::*text;
};

constexpr TextField textFields[] = {
    {"digitalGoodID", &Fields::digitalGoodId}, {"digitalGoodSKU", &Fields::digitalGoodSku},
    {"licenseKey", &Fields::licenseKey},       {"metaData", &Fields::purchaseMetadata},
    {"purchaseID", &Fields::purchaseId},
};

void readPeriod(const MessageReader& reader, Fields& fields)
{
    const std::optional<QString> start = reader.text("startDate");
    const std::optional<QString> end = reader.text("endDate");
    if (!start || !end)
        return;
    fields.startDate = dateFromText(*start);
    fields.endDate = dateFromText(*end);
    if (const std::optional<const char*> period = reader.utf8("initialPeriod"))
        fields.initialPeriod = leadingInteger(*period).value_or(0);
}

} // namespace

bool tellsPeriod(int state)
{
    return state != 0 && state != notTold;
}

int stateFromText(const char* text)
{
    // What is no number is 0, as it is for atoi(). A number that is no `int` is none of the states.
    return beginsWithInteger(text) ? leadingInteger(text).value_or(notTold) : 0;
}

ReceiptDate dateFromText(const QString& text)
{
    constexpr int shortestMilliseconds = 11;
    constexpr qint64 millisecondsPerSecond = 1000;
    bool isNumber = false;
    const qint64 number = text.toLongLong(&isNumber);
    if (!isNumber)
        return ReceiptDate();
    return ReceiptDate(text.size() < shortestMilliseconds ? number * millisecondsPerSecond
                                                          : number);
}

void readReceipt(const MessageReader& reader, PurchaseReceipt& receipt)
{
    Fields& fields = PurchaseReceiptPrivate::of(receipt);
    if (const std::optional<const char*> state = reader.utf8("itemState"))
        fields.state = stateFromText(*state);
    if (tellsPeriod(fields.state))
        readPeriod(reader, fields);
    if (const std::optional<QString> date = reader.text("date"))
        fields.date = dateFromText(*date);
    for (const TextField& field : textFields)
        reader.readText(field.name, fields.*field.text);
}

} // namespace platform
} // namespace tamo
