// SPDX-License-Identifier: Apache-2.0
#include "LedSummary.h"

#include "common/Json.h"
#include "common/Printable.h"
#include "pps/ObjectFile.h"
#include "services/led/LedText.h"

#include <fcntl.h>

#include <algorithm>

namespace tamobox {

namespace {

std::string describe(const LedRequest& request)
{
    const std::string who = request.process == 0 ? std::string("a process outside the box")
                                                 : "process " + std::to_string(request.process) +
                                                       ' ' + printable(request.application);
    const std::string left = request.remaining == -1 ? std::string("until cancelled")
                                                     : std::to_string(request.remaining) + " left";
    return std::string(nameOf(request.color)) + " for " + who + ", id " + printable(request.id) +
           ", " + left;
}

void write(Json& json, const LedRequest& request)
{
    json.startObject().key("pid").number(request.process);
    json.key("application").string(request.application).key("id").string(request.id);
    json.key("color").string(nameOf(request.color));
    json.key("remaining").number(request.remaining).endObject();
}

} // namespace

LedState publishedLed()
{
    const auto text = ObjectFile(ledObject, O_RDONLY | O_NONBLOCK).read();
    return text ? readLed(*text) : LedState();
}

std::string ledSummary(const LedState& state)
{
    const std::string light =
        state.lit == LedColor::None ? "dark" : std::string("lit ") + nameOf(state.lit);
    if (!state.shown())
        return state.lit == LedColor::None ? "off" : light;
    const std::string text = light + "; flashes " + describe(*state.shown());
    const auto waiting =
        std::count_if(state.requests.begin(), state.requests.end(),
                      [&state](const LedRequest& request) { return state.waits(request); });
    return waiting == 0 ? text : text + "; " + std::to_string(waiting) + " waiting";
}

std::string ledToText(const LedState& state)
{
    std::string text = ledSummary(state) + '\n';
    for (const LedRequest& request : state.requests)
        if (state.waits(request))
            text += "  waits: " + describe(request) + '\n';
    return text;
}

std::string ledToJson(const LedState& state)
{
    Json json;
    json.startObject().key("lit");
    state.lit == LedColor::None ? json.null() : json.string(nameOf(state.lit));
    json.key("shown");
    if (state.shown())
        write(json, *state.shown());
    else
        json.null();
    json.key("waiting").startArray();
    for (const LedRequest& request : state.requests)
        if (state.waits(request))
            write(json, request);
    return json.endArray().endObject().text();
}

} // namespace tamobox
