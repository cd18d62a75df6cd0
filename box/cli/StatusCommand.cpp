// SPDX-License-Identifier: Apache-2.0
#include "AttributeReader.h"
#include "BatteryState.h"
#include "BoxEntrance.h"
#include "CommandLine.h"
#include "Commands.h"
#include "DisplayText.h"
#include "LedSummary.h"
#include "NetworkText.h"
#include "NotificationTable.h"

#include "common/Failure.h"
#include "common/Json.h"

#include <rapidjson/document.h>

#include <cstdio>
#include <optional>
#include <string>

namespace tamobox {

namespace {

/** What `/pps` says of the phone. */
struct PhoneState
{
    BatteryState battery;
    std::optional<DisplayList> displays;
    std::string displaysComplaint; // where there is no list
    std::optional<NetworkState> network;
    std::string networkComplaint; // where its state cannot be read
    std::optional<std::string> osVersion;
    LedState led;
    std::size_t notifications = 0;      // their number
    std::optional<int> waitingPayments; // their number; nothing: unknown

    static PhoneState read();
};

PhoneState PhoneState::read()
{
    PhoneState phone;
    phone.battery = BatteryState::read();
    phone.osVersion =
        readAttribute("services/deviceinfo/data", "@data",
                      [](MessageReader& message) { return message.string("OsVersion"); });
    phone.led = publishedLed();
    phone.notifications = publishedNotifications().size();
    phone.waitingPayments = readAttribute("box/payments", "@payments", [](MessageReader& message) {
        return message.integer("waiting");
    });
    try {
        phone.displays = DisplayList::published();
    } catch (const ObjectFailure&) {
        throw;
    } catch (const Failure& failure) { // what is published is not a list
        phone.displaysComplaint = failure.what();
    }
    try {
        phone.network = NetworkState::published();
    } catch (const ObjectFailure&) {
        throw;
    } catch (const Failure& failure) {
        phone.networkComplaint = failure.what();
    }
    return phone;
}

void addMember(rapidjson::Document& status, const char* name, const std::string& json)
{
    rapidjson::Document value(&status.GetAllocator());
    value.Parse(json.c_str());
    status.AddMember(rapidjson::StringRef(name), value.Move(), status.GetAllocator());
}

void printJson(rapidjson::Document& status, const PhoneState& phone)
{
    addMember(status, "battery", phone.battery.toJson());
    addMember(status, "displays", phone.displays ? displaysToJson(*phone.displays) : "null");
    addMember(status, "network", phone.network ? networkToJson(*phone.network) : "null");
    Json device;
    device.startObject().key("osVersion");
    phone.osVersion ? device.string(*phone.osVersion) : device.null();
    addMember(status, "device", device.endObject().text());
    addMember(status, "led", ledToJson(phone.led));
    addMember(status, "notifications", std::to_string(phone.notifications));
    Json payments;
    payments.startObject().key("waiting");
    phone.waitingPayments ? payments.number(*phone.waitingPayments) : payments.null();
    addMember(status, "payments", payments.endObject().text());
    rapidjson::StringBuffer buffer;
    rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
    status.Accept(writer);
    std::printf("%s\n", buffer.GetString());
}

void printText(const rapidjson::Document& status, const PhoneState& phone)
{
    std::printf("box          %s\n", status["box"].GetString());
    const rapidjson::Value& application = status["application"];
    std::printf("application  process %d:", application["pid"].GetInt());
    for (const rapidjson::Value& argument : application["command"].GetArray())
        std::printf(" %s", argument.GetString());
    std::printf("\n");
    for (const rapidjson::Value& service : status["services"].GetArray()) {
        if (service["pid"].IsNull())
            std::printf("service      %s: ended\n", service["name"].GetString());
        else
            std::printf("service      %s: process %d\n", service["name"].GetString(),
                        service["pid"].GetInt());
    }
    std::printf("battery      %s\ncharger      %s\n", phone.battery.levelText().c_str(),
                phone.battery.chargerText().c_str());
    if (!phone.displays)
        std::printf("display      %s\n", phone.displaysComplaint.c_str());
    else
        for (const Display& display : phone.displays->displays())
            std::printf("display      %s\n", displaySummary(display).c_str());
    std::printf("network      %s\n", phone.network ? availabilityText(*phone.network).c_str()
                                                   : phone.networkComplaint.c_str());
    std::printf("device       version %s\n", phone.osVersion.value_or("unknown").c_str());
    std::printf("led          %s\n", ledSummary(phone.led).c_str());
    std::printf("notification %zu posted\n", phone.notifications);
    if (phone.waitingPayments)
        std::printf("payment      %d waiting\n", *phone.waitingPayments);
    else
        std::printf("payment      unknown\n");
}

} // namespace

void addStatusCommand(CommandLine& commandLine)
{
    CLI::App& command = commandLine.add(
        commandLine.root(), "status", "What the phone is like now",
        [](const CommonOptions& options) {
            const EnteredBox box = enterBox(options.box, Depth::Files);
            rapidjson::Document status;
            if (status.Parse(box.status.c_str()).HasParseError())
                throw Failure("the box '" + box.name + "' is of another version of tamo-box");
            const PhoneState phone = PhoneState::read();
            if (options.json)
                printJson(status, phone);
            else
                printText(status, phone);
            return 0;
        });
    command.footer("Process ids are those inside the box.");
}

} // namespace tamobox
