// SPDX-License-Identifier: Apache-2.0
#include "BatteryState.h"

#include "common/Json.h"
#include "pps/MessageReader.h"
#include "pps/ObjectFile.h"

#include <fcntl.h>

namespace tamobox {

namespace {

/** The attributes of an object: `get` reads one of them; nothing where the object was never
 * published. */
template<typename Getter>
auto readAttribute(const char* object, const char* member, Getter get)
    -> decltype(get(std::declval<MessageReader&>()))
{
    const auto text = ObjectFile(object, O_RDONLY | O_NONBLOCK).read();
    if (!text)
        return std::nullopt;
    MessageReader message(*text);
    if (!message.enter(member))
        return std::nullopt;
    return get(message);
}

} // namespace

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
