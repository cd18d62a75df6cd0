// SPDX-License-Identifier: Apache-2.0
#include "PaymentTable.h"

#include "TextTable.h"

#include "services/payment/Subscription.h"

namespace tamobox {

namespace {

std::string textOf(const MessageReader& report, const char* name)
{
    return tableCell(report.string(name).value_or(""));
}

std::string numberOf(const MessageReader& report, const char* name)
{
    return std::to_string(report.integer(name).value_or(0));
}

std::string momentOf(const MessageReader& report, const char* name)
{
    const auto milliseconds = report.number(name);
    return milliseconds ? localTimeText(static_cast<std::int64_t>(*milliseconds)) : std::string();
}

const char* stateText(int state)
{
    switch (static_cast<ItemState>(state)) {
    case ItemState::Owned:
        return "owned";
    case ItemState::Initial:
        return "subscribed";
    case ItemState::Renewed:
        return "renewed";
    case ItemState::Canceled:
        return "canceled";
    case ItemState::Ended:
        return "ended";
    }
    return "unknown";
}

} // namespace

std::vector<std::string> paymentHeadings(PaymentTable table)
{
    if (table == PaymentTable::Waiting)
        return {"request", "kind", "application", "pid", "id", "good", "price", "decides", "since"};
    return {"purchase", "application", "good", "sku", "price", "date", "state", "until"};
}

std::vector<std::string> paymentRow(PaymentTable table, const MessageReader& report)
{
    const std::string good = textOf(report, "digitalGoodID");
    if (table == PaymentTable::Waiting)
        return {
            numberOf(report, "request"),   textOf(report, "kind"),
            textOf(report, "application"), numberOf(report, "pid"),
            textOf(report, "id"),          good.empty() ? textOf(report, "digitalGoodSKU") : good,
            textOf(report, "price"),       textOf(report, "decides"),
            momentOf(report, "since")};
    return {textOf(report, "purchaseID"),
            textOf(report, "purchaseAppID"),
            good,
            textOf(report, "digitalGoodSKU"),
            textOf(report, "price"),
            momentOf(report, "date"),
            stateText(report.integer("itemState").value_or(-1)),
            momentOf(report, "endDate")};
}

} // namespace tamobox
