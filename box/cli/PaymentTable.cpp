// SPDX-License-Identifier: Apache-2.0
#include "PaymentTable.h"

#include "TextTable.h"

#include "common/Printable.h"
#include "services/payment/Subscription.h"

#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

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

std::string textOfJson(const rapidjson::Value& value)
{
    if (value.IsString())
        return printable(value.GetString());
    if (value.IsArray()) {
        std::string texts;
        for (const rapidjson::Value& element : value.GetArray())
            texts += (texts.empty() ? "" : " | ") + textOfJson(element);
        return texts;
    }
    rapidjson::StringBuffer buffer;
    rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
    value.Accept(writer);
    return buffer.GetString();
}

void addDetails(std::vector<std::vector<std::string>>& rows, const rapidjson::Value& object,
                const std::string& prefix)
{
    for (const auto& member : object.GetObject()) {
        const std::string name = prefix + member.name.GetString();
        if (member.value.IsObject())
            addDetails(rows, member.value, name + '.');
        else
            rows.push_back({name, textOfJson(member.value)});
    }
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
    const auto whatIsMeant = [&] {
        for (const char* const name : {"digitalGoodID", "digitalGoodSKU", "purchaseID"})
            if (std::string text = textOf(report, name); !text.empty())
                return text;
        return std::string();
    };
    if (table == PaymentTable::Waiting)
        return {
            numberOf(report, "request"), textOf(report, "kind"),    textOf(report, "application"),
            numberOf(report, "pid"),     textOf(report, "id"),      whatIsMeant(),
            textOf(report, "price"),     textOf(report, "decides"), momentOf(report, "since")};
    return {textOf(report, "purchaseID"),
            textOf(report, "purchaseAppID"),
            good,
            textOf(report, "digitalGoodSKU"),
            textOf(report, "price"),
            momentOf(report, "date"),
            stateText(report.integer("itemState").value_or(-1)),
            momentOf(report, "endDate")};
}

std::string paymentDetails(const std::string& json)
{
    rapidjson::Document report;
    report.Parse(json.c_str());
    std::vector<std::vector<std::string>> rows;
    addDetails(rows, report, {});
    std::string text;
    for (const std::string& line : tableLines(rows))
        text += line;
    return text;
}

} // namespace tamobox
