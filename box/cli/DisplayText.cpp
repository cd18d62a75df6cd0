// SPDX-License-Identifier: Apache-2.0
#include "DisplayText.h"

#include "common/Json.h"
#include "common/Printable.h"

#include <array>
#include <cstdio>

namespace tamobox {

namespace {

const char* typeOf(const Display& display)
{
    return display.isInternal ? "internal" : "external";
}

std::string extent(int width, int height)
{
    return std::to_string(width) + " x " + std::to_string(height);
}

void addDisplay(Json& json, const Display& display)
{
    json.startObject().key("id").number(display.id).key("name").string(display.name);
    json.key("type").string(typeOf(display));
    json.key("attached").boolean(display.isAttached);
    json.key("detachable").boolean(display.isDetachable);
    json.key("rotation").number(display.rotation);
    json.key("width").number(display.width).key("height").number(display.height);
    json.key("physicalWidth").number(display.physicalWidth);
    json.key("physicalHeight").number(display.physicalHeight).endObject();
}

// The name comes last: its width on the screen is not its length in bytes.
std::string line(const char* id, const char* type, const char* attached, const char* rotation,
                 const char* pixels, const char* millimetres)
{
    std::array<char, 128> text;
    std::snprintf(text.data(), text.size(), "%-11s%-10s%-10s%-10s%-16s%-14s", id, type, attached,
                  rotation, pixels, millimetres);
    return text.data();
}

} // namespace

std::string displayTable(const DisplayList& list)
{
    std::string table = line("id", "type", "attached", "rotation", "pixels", "millimetres");
    table += "name\n";
    for (const Display& display : list.displays()) {
        const bool isExtentKnown = display.physicalWidth > 0 && display.physicalHeight > 0;
        table += line(std::to_string(display.id).c_str(), typeOf(display),
                      display.isAttached ? "yes" : "no", std::to_string(display.rotation).c_str(),
                      extent(display.width, display.height).c_str(),
                      isExtentKnown ? extent(display.physicalWidth, display.physicalHeight).c_str()
                                    : "unknown");
        table += printable(display.name) + '\n';
    }
    return table;
}

std::string displaySummary(const Display& display)
{
    return std::to_string(display.id) + ", " + typeOf(display) + ": " +
           extent(display.width, display.height) + ", rotation " +
           std::to_string(display.rotation) + (display.isAttached ? "" : ", not attached");
}

std::string displayToJson(const Display& display)
{
    Json json;
    addDisplay(json, display);
    return json.text();
}

std::string displaysToJson(const DisplayList& list)
{
    Json json;
    json.startArray();
    for (const Display& display : list.displays())
        addDisplay(json, display);
    return json.endArray().text();
}

} // namespace tamobox
