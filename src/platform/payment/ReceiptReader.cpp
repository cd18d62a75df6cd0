// SPDX-License-Identifier: Apache-2.0
#include "ReceiptReader.h"

#include "DecimalText.h"
#include "MessageReader.h"

#include <tamo/platform/PurchaseReceipt.h>
#include <tamomock/PurchaseReceiptEditor.h>

#include <limits>

namespace tamo {
namespace platform {

namespace {

constexpr int notTold = 5;

using Editor = tamomock::PurchaseReceiptEditor;

struct TextField
{
    const char* name;
    Editor& (Editor::*set)(const QString&);
};

constexpr TextField textFields[] = {
    {"digitalGoodID", &Editor::setDigitalGoodId}, {"digitalGoodSKU", &Editor::setDigitalGoodSku},
    {"licenseKey", &Editor::setLicenseKey},       {"metaData", &Editor::setPurchaseMetadata},
    {"purchaseID", &Editor::setPurchaseId},
};

void readPeriod(const MessageReader& reader, Editor& editor)
{
    const std::optional<QString> start = reader.text("startDate");
    const std::optional<QString> end = reader.text("endDate");
    if (start && end)
        editor.setStartDate(dateFromText(*start)).setEndDate(dateFromText(*end));
    if (const std::optional<const char*> period = reader.utf8("initialPeriod"))
        editor.setInitialPeriod(leadingInteger(*period).value_or(0));
}

} // namespace

bool tellsPeriod(int state)
{
    return state != 0 && state != notTold;
}

QDateTime dateFromText(const QString& text)
{
    constexpr int shortestMilliseconds = 11;
    constexpr qint64 millisecondsPerSecond = 1000;
    bool isNumber = false;
    const qint64 number = text.toLongLong(&isNumber);
    if (!isNumber)
        return QDateTime();
    return QDateTime::fromMSecsSinceEpoch(
        text.size() < shortestMilliseconds ? number * millisecondsPerSecond : number);
}

void readReceipt(const MessageReader& reader, PurchaseReceipt& receipt)
{
    Editor editor(receipt);
    int state = notTold;
    if (const std::optional<const char*> text = reader.utf8("itemState"))
        state = leadingInteger(*text).value_or(0);
    if (tellsPeriod(state))
        readPeriod(reader, editor);
    editor.setState(state);
    if (const std::optional<QString> date = reader.text("date"))
        editor.setDate(dateFromText(*date));
    for (const TextField& field : textFields) {
        if (const std::optional<QString> text = reader.text(field.name))
            (editor.*field.set)(*text);
    }
}

} // namespace platform
} // namespace tamo
