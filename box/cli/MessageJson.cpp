// SPDX-License-Identifier: Apache-2.0
#include "MessageJson.h"

#include "common/Json.h"

namespace tamobox {

namespace {

void writeMembers(Json& json, MessageReader& reader, bool named);

// Writes the element that the reader stands on.
void writeElement(Json& json, MessageReader& reader)
{
    pps_decoder_t* const decoder = reader.decoder();
    bool boolean = false;
    std::int64_t whole = 0;
    double number = 0;
    switch (reader.type()) {
    case PPS_TYPE_BOOL:
        pps_decoder_get_bool(decoder, nullptr, &boolean);
        json.boolean(boolean);
        break;
    case PPS_TYPE_NUMBER:
        if (pps_decoder_get_int64(decoder, nullptr, &whole) == 0) {
            json.number(whole);
        } else {
            pps_decoder_get_double(decoder, nullptr, &number);
            json.number(number);
        }
        break;
    case PPS_TYPE_STRING:
        json.string(reader.string(nullptr).value_or(""));
        break;
    case PPS_TYPE_ARRAY:
        reader.enter(nullptr);
        json.startArray();
        writeMembers(json, reader, false);
        json.endArray();
        reader.leave();
        break;
    case PPS_TYPE_OBJECT:
        reader.enter(nullptr);
        json.startObject();
        writeMembers(json, reader, true);
        json.endObject();
        reader.leave();
        break;
    default: // null, and what has been deleted
        json.null();
        break;
    }
}

void writeMembers(Json& json, MessageReader& reader, bool named)
{
    while (reader.next()) {
        if (named)
            json.key((reader.type() == PPS_TYPE_DELETED ? "-" : "") + reader.name());
        writeElement(json, reader);
    }
}

} // namespace

std::string messageToJson(const std::string& message)
{
    MessageReader reader(message);
    return membersToJson(reader);
}

std::string membersToJson(MessageReader& reader)
{
    Json json;
    json.startObject();
    writeMembers(json, reader, true);
    json.endObject();
    return json.text();
}

} // namespace tamobox
