// SPDX-License-Identifier: Apache-2.0
#include "BatteryState.h"
#include "BoxEntrance.h"
#include "CommandLine.h"
#include "Commands.h"

#include "common/Failure.h"
#include "common/Json.h"

#include <rapidjson/document.h>

#include <cstdio>

namespace tamobox {

namespace {

void printJson(rapidjson::Document& status, const BatteryState& battery)
{
    rapidjson::Document batteryJson;
    batteryJson.Parse(battery.toJson().c_str());
    status.AddMember("battery", rapidjson::Value(batteryJson, status.GetAllocator()),
                     status.GetAllocator());
    rapidjson::StringBuffer buffer;
    rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
    status.Accept(writer);
    std::printf("%s\n", buffer.GetString());
}

void printText(const rapidjson::Document& status, const BatteryState& battery)
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
    std::printf("battery      %s\ncharger      %s\n", battery.levelText().c_str(),
                battery.chargerText().c_str());
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
            const BatteryState battery = BatteryState::read();
            if (options.json)
                printJson(status, battery);
            else
                printText(status, battery);
            return 0;
        });
    command.footer("Process ids are those inside the box.");
}

} // namespace tamobox
