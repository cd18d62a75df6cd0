// SPDX-License-Identifier: Apache-2.0
#include "PurchaseDialog.h"

#include "DecimalText.h"
#include "MessageReader.h"
#include "MessageWriter.h"
#include "ReceiptReader.h"
#include "ServiceDescriptor.h"

#include <tamo/Exception.h>
#include <tamomock/PurchaseReceiptEditor.h>

#include <array>
#include <cmath>
#include <cstring>

namespace tamo {
namespace platform {

namespace {

/** A text that the dialog is given: always the same, or one of the purchase's. */
struct Text
{
    const char* name;
    const char* constant;
    QString PurchaseDialog::*value = nullptr;
};

constexpr Text beforeButtons[] = {
    {"messageText", ""},
    {"titleText", "Edit Payment Options: Paypal"},
    {"size", "tall"},
    {"errorText", ""},
};

constexpr Text context[] = {
    {"digitalGoodID", nullptr, &PurchaseDialog::digitalGoodId},
    {"digitalGoodSKU", nullptr, &PurchaseDialog::digitalGoodSku},
    {"digitalGoodName", nullptr, &PurchaseDialog::digitalGoodName},
    {"metaData", nullptr, &PurchaseDialog::purchaseMetadata},
};

constexpr Text afterButtons[] = {
    {"groupId", nullptr, &PurchaseDialog::windowGroupId},
    {"cid", "1"},
    {"price", "$3.99"},
    {"tax", "0"},
    {"total", "$3.99"},
    {"currency", "CAD"},
    {"testingMode", "true"},
    {"chosenOption", "PAYPAL"},
    {"type", "buyer@example.com"},
    {"vendor", nullptr, &PurchaseDialog::applicationName},
    {"name", nullptr, &PurchaseDialog::applicationName},
    {"iconURL", nullptr, &PurchaseDialog::applicationIcon},
};

constexpr const char* cancelLabel = "confirmpurchase.cancel";
constexpr const char* buyLabel = "confirmpurchase.buynow";

template<class Texts>
void addTexts(MessageWriter& writer, const PurchaseDialog& dialog, const Texts& texts)
{
    for (const Text& text : texts) {
        if (text.value)
            writer.addText(text.name, dialog.*text.value);
        else
            writer.addText(text.name, text.constant);
    }
}

QDateTime dateFromNumber(const std::optional<double>& milliseconds)
{
    constexpr double limit = 9007199254740992.0; // 2^53, up to which each number has its double
    if (!milliseconds || std::fabs(*milliseconds) > limit)
        return QDateTime();
    return QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(*milliseconds));
}

int integerFrom(const std::optional<const char*>& text)
{
    return leadingInteger(text.value_or("")).value_or(0);
}

} // namespace

PurchaseDialog::Outcome PurchaseDialog::run(const ServiceDescriptor& service) const
{
    constexpr std::size_t maxAnswerSize = 1024;
    MessageWriter writer;
    writeTo(writer);
    writer.writeTo(service);
    std::array<char, maxAnswerSize> answer;
    const ssize_t size = service.read(answer.data(), answer.size());
    if (size < 1)
        throw Exception();
    return outcome(answer.data(), static_cast<std::size_t>(size));
}

void PurchaseDialog::writeTo(MessageWriter& writer) const
{
    constexpr double backgroundAlpha = 0.5;
    writer.addText("msg", "show");
    writer.addText("id", QString::number(requestId));
    writer.startObject("dat");
    writer.addText("className", "ule.dialog::PurchaseConfirmDialog");
    writer.startObject("desc_obj");
    writer.addNumber("bkgAlpha", backgroundAlpha);
    addTexts(writer, *this, beforeButtons);
    writer.startArray("buttons");
    writer.startObject(nullptr);
    writer.addText("label", cancelLabel);
    writer.endObject();
    writer.startObject(nullptr);
    writer.addText("label", buyLabel);
    writer.startObject("context");
    addTexts(writer, *this, context);
    writer.endObject();
    writer.endObject();
    writer.endArray();
    addTexts(writer, *this, afterButtons);
    writer.endObject();
    writer.endObject();
}

PurchaseDialog::Outcome PurchaseDialog::outcome(const char* answer, std::size_t length) const
{
    MessageReader reader(answer, length);
    if (!reader.isValid() || !reader.enterObject("@control"))
        throw Exception();
    const std::optional<int> id = leadingInteger(reader.utf8("id").value_or(""));
    if (!id)
        throw Exception();

    enum Error { NoSelection = 1, NoButton, Cancelled, Refused };
    const QString failure = QStringLiteral("Error occurred during purchase process.");
    if (!reader.enterObject("dat") || !reader.enterObject("resp_obj"))
        return {*id, NoSelection, failure, {}};
    const std::optional<QString> selection = reader.text("errorSelection");
    if (!selection)
        return {*id, NoSelection, failure, {}};
    if (*selection != QLatin1String("paymentSuccess"))
        return {*id, Refused, *selection, {}};
    const std::optional<const char*> button = reader.utf8("responseBtnLabel");
    if (!button)
        return {*id, NoButton, failure, {}};
    if (std::strcmp(*button, cancelLabel) == 0)
        return {*id, Cancelled, QStringLiteral("Purchase was canceled."), {}};
    return {*id, 0, QString(), receipt(reader)};
}

QSharedPointer<PurchaseReceipt> PurchaseDialog::receipt(const MessageReader& reader) const
{
    const auto receipt = QSharedPointer<PurchaseReceipt>::create();
    tamomock::PurchaseReceiptEditor editor(*receipt);
    editor.setDigitalGoodId(digitalGoodId)
        .setDigitalGoodSku(digitalGoodSku)
        .setPurchaseMetadata(purchaseMetadata)
        .setPurchaseId(reader.text("purchaseID").value_or(QString()))
        .setState(stateFromText(reader.utf8("itemState").value_or("0")))
        .setDate(QDateTime::currentDateTime());
    if (tellsPeriod(receipt->state())) {
        editor.setStartDate(dateFromNumber(reader.number("startDate")))
            .setEndDate(dateFromNumber(reader.number("endDate")))
            .setInitialPeriod(integerFrom(reader.utf8("initialPeriod")));
    }
    return receipt;
}

} // namespace platform
} // namespace tamo
