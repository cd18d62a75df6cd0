// SPDX-License-Identifier: Apache-2.0
#include "PaymentTable.h"

#include "common/Printable.h"
#include "services/payment/Subscription.h"

#include <array>
#include <ctime>

namespace tamobox {

namespace {

constexpr std::size_t longestCell = 60; // bytes

std::string cell(const std::string& text)
{
    std::size_t size = std::min(text.size(), longestCell);
    while (size < text.size() && size > 0 &&
           (static_cast<unsigned char>(text[size]) & 0xC0) == 0x80)
        --size;
    return printable(text.substr(0, size)) + (size < text.size() ? "..." : "");
}

std::string textOf(const MessageReader& report, const char* name)
{
    return cell(report.string(name).value_or(""));
}

std::string numberOf(const MessageReader& report, const char* name)
{
    return std::to_string(report.integer(name).value_or(0));
}

std::string momentOf(const MessageReader& report, const char* name)
{
    const auto milliseconds = report.number(name);
    return milliseconds ? localTimeText(*milliseconds) : std::string();
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

std::string localTimeText(double milliseconds)
{
    const std::time_t moment = static_cast<std::time_t>(milliseconds / 1000);
    std::tm local = {};
    std::array<char, 64> text = {};
    if (localtime_r(&moment, &local) == nullptr ||
        std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S", &local) == 0)
        return std::to_string(static_cast<long long>(milliseconds));
    return text.data();
}

} // namespace tamobox
