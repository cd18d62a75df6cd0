// SPDX-License-Identifier: Apache-2.0
#include "DialogRequest.h"

#include "DialogWords.h"

#include "common/Failure.h"
#include "services/RequestValues.h"
#include "services/payment/PaymentLimits.h"

#include <array>

namespace tamobox {

namespace {

constexpr const char* purchaseDialog = "ule.dialog::PurchaseConfirmDialog";

// What the dialog shows, apart from the good.
constexpr std::array<const char*, 15> shownTexts = {
    "messageText", "titleText", "size",        "errorText",    "groupId", "cid",    "price", "tax",
    "total",       "currency",  "testingMode", "chosenOption", "type",    "vendor", "name"};

/** Enters a container, and leaves it at the end. */
class Inside
{
public:
    Inside(MessageReader& reader, const char* name) : m_reader(reader)
    {
        if (!reader.enter(name))
            throw Failure(std::string(name == nullptr ? "a button" : name) +
                          " must be an object or an array");
    }
    ~Inside() { m_reader.leave(); }
    Inside(const Inside&) = delete;
    Inside& operator=(const Inside&) = delete;

private:
    MessageReader& m_reader;
};

void readContext(MessageReader& button, PaymentRequest& request)
{
    const Inside context(button, "context");
    request.goodId = requiredText(button, "digitalGoodID", longestMember);
    request.goodSku = requiredText(button, "digitalGoodSKU", longestMember);
    request.goodName = requiredText(button, "digitalGoodName", longestMember);
    request.metadata = requiredText(button, "metaData", longestMetadata);
}

// Returns whether there is one to buy with.
bool readButtons(MessageReader& description, PaymentRequest& request)
{
    const Inside buttons(description, "buttons");
    bool isForSale = false;
    while (description.next()) {
        const Inside button(description, nullptr);
        request.dialog.buttons.push_back(requiredText(description, "label", longestMember));
        if (isForSale || request.dialog.buttons.back() != buyLabel)
            continue;
        readContext(description, request);
        isForSale = true;
    }
    return isForSale;
}

} // namespace

void readDialogRequest(MessageReader& dat, PaymentRequest& request)
{
    const std::string className = requiredText(dat, "className", longestMember);
    if (className != purchaseDialog)
        throw Failure("there is no dialog " + quoted(className));
    request.dialog.texts.emplace_back("className", className);
    const Inside description(dat, "desc_obj");
    request.dialog.backgroundAlpha = dat.number("bkgAlpha");
    for (const char* const name : shownTexts)
        if (auto text = optionalText(dat, name, longestMember))
            request.dialog.texts.emplace_back(name, std::move(*text));
    // This dialog takes no money, and so it must not say that it had.
    if (dat.string("testingMode") != "true")
        throw Failure("testingMode must be 'true'");
    request.applicationName = optionalText(dat, "name", longestMember).value_or("");
    request.applicationIcon = optionalText(dat, "iconURL", longestMember).value_or("");
    request.group = optionalText(dat, "groupId", longestMember).value_or("");
    if (!readButtons(dat, request))
        throw Failure("there is no button " + std::string(buyLabel));
}

} // namespace tamobox
