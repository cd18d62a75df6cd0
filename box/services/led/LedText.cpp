// SPDX-License-Identifier: Apache-2.0
#include "LedText.h"

namespace tamobox {

namespace {

LedColor colorIn(const MessageReader& reader, const char* name)
{
    return ledColorNamed(reader.string(name).value_or("")).value_or(LedColor::None);
}

} // namespace

void writeLed(MessageWriter& message, const LedState& state)
{
    message.add("lit", nameOf(state.lit)).startArray("requests");
    for (const LedRequest& request : state.requests)
        message.startObject(nullptr)
            .add("client", request.client)
            .add("pid", request.process)
            .add("application", request.application)
            .add("id", request.id)
            .add("color", nameOf(request.color))
            .add("remaining", request.remaining)
            .endObject();
    message.endArray();
}

LedState readLed(const std::string& text)
{
    LedState state;
    MessageReader reader(text);
    if (!reader.enter("@led"))
        return state;
    state.lit = colorIn(reader, "lit");
    if (!reader.enter("requests"))
        return state;
    while (reader.next()) {
        if (!reader.enter(nullptr))
            continue;
        const LedRequest request = {reader.integer("client").value_or(0),
                                    reader.integer("pid").value_or(0),
                                    reader.string("application").value_or(""),
                                    reader.string("id").value_or(""),
                                    colorIn(reader, "color"),
                                    reader.integer("remaining").value_or(-2)};
        if (request.client > 0 && request.color != LedColor::None && request.remaining >= -1)
            state.requests.push_back(request);
        reader.leave();
    }
    return state;
}

} // namespace tamobox
