// SPDX-License-Identifier: Apache-2.0
#include "BatteryState.h"

#include "AttributeReader.h"

#include "common/Json.h"

namespace tamobox {

BatteryState BatteryState::read()
{
    BatteryState state;
    state.level = readAttribute("services/power/battery", "@battery", [](MessageReader& message) {
        return message.integer("StateOfCharge");
    });
    state.charger = readAttribute("services/power/charger", "@charger", [](MessageReader& message) {
        return message.string("ChargerInfo");
    });
    return state;
}

std::string BatteryState::levelText() const
{
    return level ? std::to_string(*level) + " %" : "unknown";
}

std::string BatteryState::chargerText() const
{
    return charger.value_or("unknown");
}

std::string BatteryState::toJson() const
{
    Json json;
    json.startObject().key("level");
    level ? json.number(*level) : json.null();
    json.key("charger");
    charger ? json.string(*charger) : json.null();
    return json.endObject().text();
}

} // namespace tamobox
