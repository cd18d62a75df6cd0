// SPDX-License-Identifier: Apache-2.0
#include "LedText.h"

namespace tamobox {

namespace {

LedColor colorIn(const MessageReader& reader, const char* name)
{
    return ledColorNamed(reader.string(name).value_or("")).value_or(LedColor::None);
}

void write(MessageWriter& message, const char* name, const LedRequest& request)
{
    message.startObject(name)
        .add("client", request.client)
        .add("pid", request.process)
        .add("application", request.application)
        .add("id", request.id)
        .add("color", nameOf(request.color))
        .add("remaining", request.remaining)
        .endObject();
}

/** Nothing where it is none. */
std::optional<LedRequest> readRequest(const MessageReader& reader)
{
    const LedRequest request = {reader.integer("client").value_or(0),
                                reader.integer("pid").value_or(0),
                                reader.string("application").value_or(""),
                                reader.string("id").value_or(""),
                                colorIn(reader, "color"),
                                reader.integer("remaining").value_or(-2)};
    if (request.client < 1 || request.color == LedColor::None || request.remaining < -1)
        return std::nullopt;
    return request;
}

} // namespace

void writeLed(MessageWriter& message, const LedState& state)
{
    message.add("lit", nameOf(state.lit));
    if (state.litFor)
        write(message, "litFor", *state.litFor);
    else
        message.startObject("litFor").endObject(); // in the place of the last one
    message.startArray("requests");
    for (const LedRequest& request : state.requests)
        write(message, nullptr, request);
    message.endArray();
}

LedState readLed(const std::string& text)
{
    LedState state;
    MessageReader reader(text);
    if (!reader.enter("@led"))
        return state;
    state.lit = colorIn(reader, "lit");
    if (reader.enter("litFor")) {
        state.litFor = readRequest(reader);
        reader.leave();
    }
    if (!reader.enter("requests"))
        return state;
    while (reader.next()) {
        if (!reader.enter(nullptr))
            continue;
        if (const auto request = readRequest(reader))
            state.requests.push_back(*request);
        reader.leave();
    }
    return state;
}

} // namespace tamobox
